// Rows stretched to lengths of their own: suite rsmp slot 7, ResampleRowsStepped8.
//
// Output row y is source row y, `width` samples, stretched to L = rowLengths[y] samples around its
// middle. If L is above `width`, the output shows the middle of the source row; if it is below, all
// of it and the samples beside it. With positions in 2^32ths of a sample,
//   step        = width x 4294967296 / L, divided in double precision, then truncated
//   position(x) = width x 2147483648 - ((width - 1) x step / 2, rounded down) + x x step
//   index       = position(x) / 4294967296, rounded down
// in exact integers. Column x becomes the sample at index, limited to -3
// .. width + 2. So a row's columns may read from 3 samples before the
// source row to 3 samples after it. A negative length mirrors the row.
//
// A row of length 0 is filled with the sample at -3, by the memory suite's live FillBytes.
#pragma once

#include "suites/resample/signatures.h"

namespace vantrix {

ResampleRowsStepped ResampleRowsStepped8;

}  // namespace vantrix
