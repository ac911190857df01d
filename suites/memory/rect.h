// How a rectangle is split into runs.
#pragma once

#include "common/lane_ops.h"

namespace vantrix {

// A longer run would not fit the signed 32-bit count of a run.
inline constexpr int64_t kRunLimit = 0x7FFFFFFF;

// Calls run(row, count) for `rows` rows of `width` values: once with row 0 and all values if the
// rows are contiguous and all values are below the limit, else row by row. Stops at the first run
// that returns false, and returns false then. Returns true if a count is below 1.
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
