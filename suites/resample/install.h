// The installer of suite rsmp.
#pragma once

#include "plugin/install.h"
#include "suites/resample/slots.h"

namespace vantrix {

// The kernels that serve the suite's slots, with all their builds.
std::span<const Kernel> ResampleKernels();

int32_t InstallResampleRoutines(const SuiteParameterBlock* block);

}  // namespace vantrix
