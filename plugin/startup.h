// The start-up sequence.
#pragma once

#include "plugin/interface.h"
#include "plugin/system.h"

namespace vantrix {

// Probes the processor, acquires the suites, builds the tables, turns
// flush-to-zero on for the calling thread, and runs the ten installers.
//
// Returns 1, or -1 when a suite is missing, of another version or too short;
// then nothing was installed. *result is 0 or -1. A second call does it all
// again, saving by then the plug-in's own kernels: a host calls this once.
int32_t Startup(const SuiteParameterBlock* block, int16_t* result, const System& system);

}  // namespace vantrix
