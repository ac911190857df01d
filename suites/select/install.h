// The installer of suite sele.
#pragma once

#include "plugin/install.h"
#include "suites/select/slots.h"

namespace vantrix {

// The kernels that serve the suite's slots, with all their builds.
std::span<const Kernel> SelectKernels();

int32_t InstallSelectRoutines(const SuiteParameterBlock* block);

}  // namespace vantrix
