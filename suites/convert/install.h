// The installer of suite conv.
#pragma once

#include "plugin/install.h"
#include "suites/convert/slots.h"

namespace vantrix {

// The kernels that serve the suite's slots, with all their builds.
std::span<const Kernel> ConvertKernels();

int32_t InstallConvertRoutines(const SuiteParameterBlock* block);

}  // namespace vantrix
