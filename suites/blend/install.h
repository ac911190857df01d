// The installer of suite blnd.
#pragma once

#include "plugin/install.h"
#include "suites/blend/slots.h"

namespace vantrix {

// The kernels that serve the suite's slots, with all their builds.
std::span<const Kernel> BlendKernels();

int32_t InstallBlendRoutines(const SuiteParameterBlock* block);

}  // namespace vantrix
