// How a rectangle is taken apart into runs.
#pragma once

#include "common/lane_ops.h"

namespace vantrix {

// A longer run would not fit the signed 32-bit counts that runs are given.
inline constexpr int64_t kRunLimit = 0x7FFFFFFF;

// Calls run(row, count) for `rows` rows of `width` values: once with row 0 and all
// values where the rows follow one another without a gap and all of them stay
// below the limit, else row by row. Ends at the first run that answers false and
// answers that; true for counts below 1.
template <class Run>
VX_INLINE bool ForEachRun(int32_t rows, int32_t width, bool isContiguous, Run run) {
  if (rows < 1 || width < 1) return true;
  const int64_t all = int64_t{rows} * width;
  if (isContiguous && all < kRunLimit) return run(intptr_t{0}, static_cast<int32_t>(all));
  for (int32_t row = 0; row < rows; ++row)
    if (!run(intptr_t{row}, width)) return false;
  return true;
}

}  // namespace vantrix
