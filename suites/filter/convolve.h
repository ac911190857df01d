// Vertical convolution of 8-bit planes, suite filt slot 28.
#pragma once

#include "suites/filter/signatures.h"

namespace vantrix {

// Each output sample is the high byte of 128 + the sum of w[k] x s over the window's rows, modulo
// 65536; k = 0 .. 2 radius, from the top. Weights that add up to 256 give the weighted mean,
// rounded to nearest; larger ones wrap.
//
// Also reads `radius` rows above the source's first row and below
// its last. If rows are 0 or columns below 1, no memory is touched.
// A negative radius is an empty window: all samples become 0.
//
// The planes may overlap, as in the usual pass in place. Then 4096 columns are taken at a time, and
// each output row of them is computed whole before it is stored.
template <class Form>
ConvolveRoutine FilterConvolveVertical8;

}  // namespace vantrix
