// What was decided here about a slot, because nobody has written down what hosts do.
#pragma once

#include <cstdint>

#include "plugin/base/interface.h"

namespace vantrix::check {

// In words; null where a slot's arguments and arithmetic are settled.
const char* DecisionAbout(SuiteIndex suite, uint16_t slot);

}  // namespace vantrix::check
