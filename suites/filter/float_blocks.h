// Four-phase sliding filters on runs of floats, suite filt slots 191 to 194.
#pragma once

#include "common/forms.h"
#include "suites/filter/signatures.h"

namespace vantrix {

// Spans of 8, 12, 16 and 20 inputs. Step k writes output[4 k + r], r = 0..3: the sum of
// matrix[r x span + j] x input[4 k + j] in the order j = 0, 1, ... span - 1, each product and
// each sum rounded to single precision. Nothing is written where not one span fits.
//
// The spans of 8 and 12 go on while a whole span of inputs is left. Those of 16 and 20 make
// (m - span) / 4 + 1 steps, m the largest multiple of the span in count, and then hand the
// rest to the host's own routine for the slot: with the input and the output advanced by
// 4 x steps, the inputs left, and all else as it came.
template <class Form>
FloatBlockRoutine FilterFloatBlock8;
template <class Form>
FloatBlockRoutine FilterFloatBlock12;
template <class Form>
FloatBlockRoutine FilterFloatBlock16;
template <class Form>
FloatBlockRoutine FilterFloatBlock20;

}  // namespace vantrix
