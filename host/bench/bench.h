// Measures the served slots.
#pragma once

#include <string>
#include <vector>

#include "host/forms.h"
#include "host/tables.h"

namespace vantrix::host {

struct BenchOptions {
  std::vector<std::string> slots;  // only these, as blnd:2; all that are served if empty
  double seconds;                  // for a routine in planes of one size
};

// Why these slots cannot be measured; empty if they can.
std::string WrongWithSlots(const Tables& tables, const std::vector<std::string>& slots);

// What stands in each slot, beside the ordinary routine and the host's own: prints a line for each
// size of the planes, and at the end sums by suite. False when a routine in a slot does not do what
// the host's own does; it is not measured.
bool RunBench(const Tables& tables, const FormIndex* index, const BenchOptions& options);

}  // namespace vantrix::host
