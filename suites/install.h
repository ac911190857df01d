// The installers of the suites that hold kernels. Each writes its suite's slots and
// returns 1.
#pragma once

#include "plugin/interface.h"

namespace vantrix {

// Whether a routine is one that the installers write: a build of a kernel, whatever its form, or
// a routine that passes its call on.
bool IsOwn(Routine routine);

int32_t InstallBlendRoutines(const SuiteParameterBlock* block);
int32_t InstallConvertRoutines(const SuiteParameterBlock* block);
int32_t InstallFilterRoutines(const SuiteParameterBlock* block);
int32_t InstallMemoryRoutines(const SuiteParameterBlock* block);
int32_t InstallPaintRoutines(const SuiteParameterBlock* block);
int32_t InstallResampleRoutines(const SuiteParameterBlock* block);
int32_t InstallSelectRoutines(const SuiteParameterBlock* block);

// Asks the host first whether path debugging is on and with which guard value, reports
// answers that do not fit together, and installs in any case.
int32_t InstallPathRoutines(const SuiteParameterBlock* block);

}  // namespace vantrix
