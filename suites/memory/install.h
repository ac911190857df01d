// The installer of suite memo.
#pragma once

#include "plugin/install.h"
#include "suites/memory/slots.h"

namespace vantrix {

// The kernels that serve the suite's slots, with all their builds.
std::span<const Kernel> MemoryKernels();

int32_t InstallMemoryRoutines(const SuiteParameterBlock* block);

}  // namespace vantrix
