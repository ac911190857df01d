// Unrolled loops, and run-time values made constants.
#pragma once

#include <utility>

#include "common/lanes.h"

namespace vantrix {

// Calls step(0), step(1) ... step(kCount - 1), unrolled.
template <int kCount, class Step>
VX_INLINE void Repeat(Step step) {
  [&]<int... i>(std::integer_sequence<int, i...>)
      VX_INLINED { (step(i), ...); }(std::make_integer_sequence<int, kCount>{});
}

// Calls work with the value as a constant if it is one of kValues, else with 0.
template <int... kValues, class Work>
VX_INLINE void WithConstant(int32_t value, Work work) {
  const bool isOneOfThem =
      ((value == kValues && (work(std::integral_constant<int, kValues>{}), true)) || ...);
  if (!isOneOfThem) work(std::integral_constant<int, 0>{});
}

}  // namespace vantrix
