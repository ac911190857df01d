// Box averages: suite rsmp slots 3 and 24, BoxAverageRows8 and BoxAverageArea8.
//
// The average of n samples is ((sum + n / 2) x r) / 16777216 with r = 16777216 / n, all
// divisions truncating: r is short of the reciprocal, so the result may be 1 below the
// rounded mean (of 1, 1, 0 it is 0), and that is what hosts rely on. One sample averages
// to itself, 255 throughout to 255.
#pragma once

#include "common/forms.h"
#include "suites/resample/signatures.h"

namespace vantrix {

// Output row i is the average of the next rowCounts[i] source rows, column by column. A
// count of 0 leaves its output row as it is and takes no source rows. A negative count n
// sums nothing and moves the source back by its rows; the row becomes the top byte of
// (n / 2, rounded down) x (16777216 / n).
template <class Form>
BoxAverageRows BoxAverageRows8;

// Output sample (x, y) is the average of the block of blockWidth x blockHeight samples
// that lies next to that of sample (x - 1, y) and below that of (x, y - 1). Nothing is
// done where the block has no samples; of more than 16777216 it averages to 0, as r is 0.
template <class Form>
BoxAverageArea BoxAverageArea8;

}  // namespace vantrix
