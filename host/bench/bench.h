// Measures the served slots.
#pragma once

#include <string>
#include <vector>

#include "host/forms.h"
#include "host/tables.h"

namespace vantrix::host {

struct BenchOptions {
  std::vector<std::string> slots;  // only these, such as blnd:2; all served slots if empty
  double seconds;                  // per routine and plane size
};

// Returns why these slots cannot be measured; empty if they can.
std::string WrongWithSlots(const Tables& tables, const std::vector<std::string>& slots);

// Measures the routine in each slot, the ordinary one and the host's own. Prints a line for each
// size of the planes, and sums by suite at the end. Returns false if a routine does not do what the
// host's own does; it is not measured.
bool RunBench(const Tables& tables, const FormIndex* index, const BenchOptions& options);

}  // namespace vantrix::host
