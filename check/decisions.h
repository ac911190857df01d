// What was decided here about a slot, because what hosts do is not written down.
#pragma once

#include <cstdint>

#include "plugin/base/interface.h"

namespace vantrix::check {

// Returns the decision in words; null if a slot's arguments and arithmetic are settled.
const char* DecisionAbout(SuiteIndex suite, uint16_t slot);

}  // namespace vantrix::check
