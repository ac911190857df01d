// The results of a run of the demonstration, as a table of text.
#pragma once

#include <string>
#include <vector>

#include "host/demo/exhibit.h"

namespace vantrix::host {

// Returns one line per slot: the times of all its runs, and whether the results were the same.
std::string TextReport(const std::vector<SlotRuns>& all);

}  // namespace vantrix::host
