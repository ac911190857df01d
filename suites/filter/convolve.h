// Vertical convolution of 8-bit planes, suite filt slot 28.
#pragma once

#include "common/forms.h"
#include "suites/filter/signatures.h"

namespace vantrix {

// Each output sample is the sum of w[k] x s over the window's rows, k = 0 .. 2 radius from
// the top, plus 128, modulo 65536, and of that the high byte. Weights that come to 256 give
// the weighted mean, rounded to nearest; larger ones wrap.
//
// Reads `radius` rows above the source's first row and below its last, and no others; rows
// of 0 or columns below 1 touch no memory. A negative radius is an empty window: all 0.
//
// The planes may overlap, as in the usual pass in place: 4096 columns are taken after another,
// and in them each output row is formed whole before it is stored.
template <class Form>
ConvolveRoutine FilterConvolveVertical8;

}  // namespace vantrix
