// The rounded products and quotients of 8-bit samples, where 255 stands for 1.
//
// Each takes one sample or a register of them. For one it reads the shared table, for more it
// computes; the two are equal for every input.
#pragma once

#include "common/lane_ops.h"
#include "common/tables.h"

namespace vantrix {

// product / 255 rounded to nearest, in 16-bit lanes; product is 0..65025.
//
// With t = product + 128 this is (t + (t >> 8)) >> 8, which for any 16-bit t is
// the high half of 257 t: one multiplication for a shift, an add and a shift.
// 255 is odd, so no quotient lies halfway; t is at most 65153, so no lane wraps.
template <class V>
VX_INLINE V DivideBy255(V product) {
  return HighProduct(product + 128, V{} + 257);
}

// a b / 255, rounded to nearest.
template <class V>
VX_INLINE V Multiply(V a, V b) {
  if constexpr (kIsOneSample<V>)
    return V{MultiplyTable[a[0]][b[0]]};
  else
    return Narrow(DivideBy255(WidenLow(a) * WidenLow(b)), DivideBy255(WidenHigh(a) * WidenHigh(b)));
}

// a + b - a b / 255, the product rounded to nearest. Never
// wraps: with 255 as 1 it is a + b (1 - a).
template <class V>
VX_INLINE V Screen(V a, V b) {
  if constexpr (kIsOneSample<V>)
    return V{ScreenTable[a[0]][b[0]]};
  else
    return a + b - Multiply(a, b);
}

// Screen(a, b) if the condition holds, else Multiply(a, b): both need the same product.
template <class Condition, class V>
VX_INLINE V ScreenOrMultiply(Condition screens, V a, V b) {
  if constexpr (kIsOneSample<V>) {
    // Looked up, as a branch on a varied picture would be mispredicted.
    constexpr const uint8_t(*kTables[2])[256] = {MultiplyTable, ScreenTable};
    return V{kTables[screens[0] & 1][a[0]][b[0]]};
  } else {
    const V product = Multiply(a, b);
    return screens ? a + b - product : product;
  }
}

// d + w (r - d) / 255, rounded to nearest: 0 keeps d, 255 gives r.
//
// Computed as (d (255 - w) + r w) / 255. The sum of the two
// products is at most 255 x 255, so DivideBy255 takes it.
template <class V>
VX_INLINE V Mix(V d, V r, V w) {
  if constexpr (kIsOneSample<V>) {
    const int change = SignedMultiplyTable[w[0]][kSignedCentre + r[0] - d[0]];
    return d + V{static_cast<uint8_t>(change)};
  } else {
    return Narrow(DivideBy255(WeighLow(d, r, w)), DivideBy255(WeighHigh(d, r, w)));
  }
}

// 255 x / y, halves rounded up, if y > x; else 255.
//
// This is (255 x + y / 2) / y in integers. The numerator is at most 65152, so numerator and divisor
// are exact in single precision. A quotient that is not an integer is at least 1 / 255 below the
// next integer, far more than rounding moves it. So the truncated quotient is the integer quotient
// in each of the four rounding modes. Lanes that saturate divide by 255, so no lane divides by 0.
template <class V>
VX_INLINE V Divide(V x, V y) {
  if constexpr (kIsOneSample<V>) {
    return V{DivideTable[x[0]][y[0]]};
  } else {
    const V saturates = As<V>(y <= x);
    const V divisor = y | saturates;
    const auto quotient = [](auto numerator, auto by) VX_INLINED {
      return TruncatedQuotient(numerator * 255 + (by >> 1), by);
    };
    return saturates | Narrow(quotient(WidenLow(x), WidenLow(divisor)),
                              quotient(WidenHigh(x), WidenHigh(divisor)));
  }
}

}  // namespace vantrix
