// The square root of the local deviation filter.
#pragma once

#include "common/lane_ops.h"

namespace vantrix {

// Returns the square root of d / 21, root and quotient rounded down, for d from 0 to 1300500.
//
// The factor is slightly more than 1/21. So d = 21 n^2 gives n^2 or
// more, and d = 21 n^2 - 1 gives less. Both keep a relative distance of
// 3.8e-7, more than the error of single precision in any rounding mode.
template <class I>
VX_INLINE I RootOfTwentyFirst(I d) {
  constexpr float kFactor = static_cast<float>(1 / 21.0 * (1 + 3.8e-7));
  return Truncated(Root(ToFloats(d) * kFactor));
}

}  // namespace vantrix
