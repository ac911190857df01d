// The rounded products and quotients of 8-bit samples, where 255 stands for 1.
//
// Each takes one sample or a register of them. With one it reads the shared
// table, with more it computes; the two are equal for every input.
#pragma once

#include "common/lanes.h"
#include "common/tables.h"

namespace vantrix {

template <class V>
inline constexpr bool kIsOneSample = kLaneCount<V> == 1;

// product / 255 rounded to nearest, in 16-bit lanes; product is 0..65025.
//
// With t = product + 128 this is (t + (t >> 8)) >> 8, which for any 16-bit t is
// the high half of 257 t: one multiplication for a shift, an add and a shift.
// 255 is odd, so no quotient lies halfway; t is at most 65153, so no lane wraps.
template <class Words>
VX_INLINE Words DivideBy255(Words product) {
  return HighProduct(product + 128, Words{} + 257);
}

// a b / 255, rounded to nearest.
template <class V>
VX_INLINE V Multiply(V a, V b) {
  if constexpr (kIsOneSample<V>)
    return V{MultiplyTable[a[0]][b[0]]};
  else
    return Narrow(DivideBy255(WidenLow(a) * WidenLow(b)), DivideBy255(WidenHigh(a) * WidenHigh(b)));
}

// d + w (r - d) / 255, rounded to nearest: 0 keeps d, 255 gives r.
//
// Computed as (d (255 - w) + r w) / 255. The two products share 255 x 255
// between them, so their sum stays within DivideBy255.
template <class V>
VX_INLINE V Mix(V d, V r, V w) {
  if constexpr (kIsOneSample<V>) {
    const int change = SignedMultiplyTable[w[0]][kSignedCentre + r[0] - d[0]];
    return d + V{static_cast<uint8_t>(change)};
  } else {
    return Narrow(DivideBy255(WeighLow(d, r, w)), DivideBy255(WeighHigh(d, r, w)));
  }
}

}  // namespace vantrix
