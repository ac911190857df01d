// The start-up sequence.
#pragma once

#include "plugin/base/interface.h"
#include "plugin/base/system.h"

namespace vantrix {

// Probes the processor, acquires the suites, builds the tables, turns
// flush-to-zero on for the calling thread, and runs the ten installers.
//
// Returns 1, or -1 if a suite is missing, of another version or too short; then nothing is
// installed. *result is 0 or -1. A second call does everything again, but does not save our own
// routines in place of the host's.
int32_t Startup(const SuiteParameterBlock* block, int16_t* result, const System& system);

}  // namespace vantrix
