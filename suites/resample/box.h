// Box averages: suite rsmp slots 3 and 24, BoxAverageRows8 and BoxAverageArea8.
//
// The average of n samples is ((sum + n / 2) x r) / 16777216 with r = 16777216 / n; all divisions
// truncate. As r is at most the reciprocal, the result may be 1 below the rounded mean: for 1, 1, 0
// it is 0. Hosts rely on that. The average of one sample is the sample, that of 255s is 255.
#pragma once

#include "suites/resample/signatures.h"

namespace vantrix {

// Output row i is the average of the next rowCounts[i] source rows, column by column. A count of 0
// leaves its output row as it is, and takes no source rows. A negative count n sums nothing and
// moves the source back by -n rows; every sample of the output row becomes the top byte of (n / 2,
// rounded down) x (16777216 / n).
template <class Form>
BoxAverageRows BoxAverageRows8;

// Output sample (x, y) is the average of block (x, y) of the source, of blockWidth x blockHeight
// samples. Blocks lie side by side and one below another. If a block has no samples, nothing is
// done. If it has more than 16777216, the average is 0, as r is 0.
template <class Form>
BoxAverageArea BoxAverageArea8;

}  // namespace vantrix
