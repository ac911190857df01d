// Rows stretched one by one: suite rsmp slot 7, ResampleRowsStepped8.
//
// Output row y shows source row y, `width` samples, as L = rowLengths[y] samples about
// the same middle: wider rows show the middle of it, narrower ones all of it and the
// samples beside it. With positions in 2^32ths of a sample,
//   step        = width x 4294967296 / L, divided in double precision, then truncated
//   position(x) = width x 2147483648 - ((width - 1) x step / 2, rounded down) + x x step
//   index       = position(x) / 4294967296, rounded down
// in exact integers. Column x becomes the sample at index; below -2 that at -3, above
// width + 2 that at width + 2. So a source row reaches from 3 samples before it to 3
// behind it, as far as its columns name them. A negative length mirrors the row.
//
// A row of length 0 is filled with the sample at -3 by the memory suite's live FillBytes.
#pragma once

#include "common/forms.h"
#include "suites/resample/signatures.h"

namespace vantrix {

ResampleRowsStepped ResampleRowsStepped8;

}  // namespace vantrix
