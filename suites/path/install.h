// The installer of suite path.
#pragma once

#include "plugin/install.h"
#include "suites/path/slots.h"

namespace vantrix {

std::span<const Kernel> PathKernels();

// Asks the host whether path debugging is on and with which guard value, reports
// answers that do not fit together, and installs in any case.
int32_t InstallPathRoutines(const SuiteParameterBlock* block);

}  // namespace vantrix
