// The installer of suite pntg.
#pragma once

#include "plugin/install.h"
#include "suites/paint/slots.h"

namespace vantrix {

// The kernels that serve the suite's slots, with all their builds.
std::span<const Kernel> PaintKernels();

int32_t InstallPaintRoutines(const SuiteParameterBlock* block);

}  // namespace vantrix
