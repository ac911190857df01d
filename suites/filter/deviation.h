// Local deviation of an 8-bit plane, suite filt slot 12.
#pragma once

#include "suites/filter/signatures.h"

namespace vantrix {

// With S the sum of the 3 x 3 samples around a sample, and Q the sum of their squares, writes the
// square root of (9 Q - S^2) / 21, quotient and root rounded down. That is about 1.96 times their
// standard deviation, and at most 248.
//
// Reads one sample beyond the source's rows and columns on every side.
// Calls the host's polling service once, before anything else, and returns
// its result. If rows or columns are below 1, no memory is touched.
//
// The planes may overlap: rows are taken in order. In each row columns are read from the left, and
// sample x is written when column x + 1 has been read.
template <class Form>
DeviationRoutine FilterLocalDeviation8;

}  // namespace vantrix
