// What this program runs on.
#pragma once

#include <string>

namespace vantrix::host {

// What the processor calls itself.
std::string ProcessorName();

// The system and its version.
std::string SystemName();

}  // namespace vantrix::host
