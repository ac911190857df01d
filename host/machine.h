// What this program runs on.
#pragma once

#include <string>

namespace vantrix::host {

// Returns the name that the processor reports.
std::string ProcessorName();

// Returns the name and the version of the system.
std::string SystemName();

}  // namespace vantrix::host
