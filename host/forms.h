// The forms of the kernels, as the loaded plug-in tells them.
#pragma once

#include <string>

#include "plugin/form_index.h"

namespace vantrix::host {

// The plug-in's table of its forms; null where its library holds none.
const FormIndex* FindFormIndex(PluginMainRoutine* loaded);

// The narrowest form whose build of the slot a routine is; empty where none is.
std::string FormOf(const FormIndex& index, SuiteIndex suite, uint16_t slot, Routine routine);

// The names of the forms that a slot has builds in, separated by commas.
std::string FormsOf(const FormIndex& index, SuiteIndex suite, uint16_t slot);

// The names of the forms that run here, separated by commas.
std::string RunningForms(const FormIndex& index);

}  // namespace vantrix::host
