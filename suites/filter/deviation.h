// Local deviation of an 8-bit plane, suite filt slot 12.
#pragma once

#include "common/forms.h"
#include "suites/filter/signatures.h"

namespace vantrix {

// Of the 3 x 3 samples about each place, with their sum S and the sum of their squares Q,
// writes the square root of (9 Q - S^2) / 21, quotient and root rounded down: about 1.96 times
// their standard deviation, 248 at most.
//
// Reads one sample beyond the source's rows and columns on every side. Calls the host's
// polling service once, first of all; its answer is returned. Rows or columns below 1 touch
// no memory.
//
// The planes may overlap: rows are taken in order. Of each, columns are read from the left, and
// sample x is written when column x + 1 has been read.
template <class Form>
DeviationRoutine FilterLocalDeviation8;

}  // namespace vantrix
