// Four-phase sliding filters on runs of floats, suite filt slots 191 to 194.
#pragma once

#include "suites/filter/signatures.h"

namespace vantrix {

// The span is 8, 12, 16 or 20 inputs. Step k writes output[4 k + r] for r = 0..3: the sum of
// matrix[r x span + j] x input[4 k + j] in the order j = 0, 1, ... span - 1, each product and each
// sum rounded to single precision. If not even one span fits, nothing is written.
//
// With spans of 8 and 12, steps go on while a whole span of inputs is left. With spans of 16 and 20
// there are (m - span) / 4 + 1 steps, m being the largest multiple of the span in count. Then the
// rest is handed to the host's own routine for the slot: input and output advanced by 4 x steps,
// the count of inputs left, and the other arguments as they came.
template <class Form>
FloatBlockRoutine FilterFloatBlock8;
template <class Form>
FloatBlockRoutine FilterFloatBlock12;
template <class Form>
FloatBlockRoutine FilterFloatBlock16;
template <class Form>
FloatBlockRoutine FilterFloatBlock20;

}  // namespace vantrix
