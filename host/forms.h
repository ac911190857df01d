// The forms of the kernels, as the loaded plug-in reports them.
#pragma once

#include <string>

#include "plugin/form_index.h"

namespace vantrix::host {

// Returns the plug-in's table of its forms; null if its library has none.
const FormIndex* FindFormIndex(PluginMainRoutine* loaded);

// Returns the narrowest form in which the slot's build is this routine; empty if there is none.
std::string FormOf(const FormIndex& index, SuiteIndex suite, uint16_t slot, Routine routine);

// Returns the names of the forms that a slot has builds in, separated by commas.
std::string FormsOf(const FormIndex& index, SuiteIndex suite, uint16_t slot);

// Returns the names of the forms that run here, separated by commas.
std::string RunningForms(const FormIndex& index);

}  // namespace vantrix::host
