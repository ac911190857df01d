// The installer of suite filt.
#pragma once

#include "plugin/install.h"
#include "suites/filter/slots.h"

namespace vantrix {

// The kernels that serve the suite's slots, with all their builds.
std::span<const Kernel> FilterKernels();

int32_t InstallFilterRoutines(const SuiteParameterBlock* block);

}  // namespace vantrix
