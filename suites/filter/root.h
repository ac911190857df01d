// The square root of the local deviation filter.
#pragma once

#include "common/lane_ops.h"

namespace vantrix {

// The root of d / 21, both rounded down, for d from 0 to 1300500.
//
// The factor is 1/21 and a little more: a d of 21 n^2 stays at n^2 or above and one of
// 21 n^2 - 1 stays below it, by 3.8e-7 of its size either way, which is more than single
// precision strays, in any rounding mode.
template <class I>
VX_INLINE I RootOfTwentyFirst(I d) {
  constexpr float kFactor = static_cast<float>(1 / 21.0 * (1 + 3.8e-7));
  return Truncated(Root(ToFloats(d) * kFactor));
}

}  // namespace vantrix
