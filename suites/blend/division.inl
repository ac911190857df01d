// Bodies of division.h, for the units that instantiate them.
#pragma once

#include "common/rounding.h"
#include "common/rows.h"
#include "suites/blend/division.h"

namespace vantrix {

// Sets the rounding mode to truncation. At the end of the scope, restores the register and issues a
// fence. Quotients are the same in every mode; mode and fence are part of the contract.
class TruncatingScope {
 public:
  VX_INLINE TruncatingScope() : saved_(_mm_getcsr()) { _mm_setcsr(saved_ | kTruncate); }
  VX_INLINE ~TruncatingScope() {
    _mm_setcsr(saved_);
    _mm_mfence();
  }
  TruncatingScope(const TruncatingScope&) = delete;
  TruncatingScope& operator=(const TruncatingScope&) = delete;

 private:
  static constexpr uint32_t kTruncate = 0x6000;
  uint32_t saved_;
};

// A division takes long: four of them want more than half a register of samples.
inline constexpr int kFewestToDivide = 8;

struct Burn {
  static constexpr int kFewestInRegister = kFewestToDivide;
  template <class V>
  VX_INLINE V operator()(V a, V b) const {
    return ~Divide(V(~a), b);
  }
};

struct ScreenShare {
  static constexpr int kFewestInRegister = kFewestToDivide;
  template <class V>
  VX_INLINE Pair<V> operator()(Pair<V> samples) const {
    const auto [p, q] = samples;
    const V combined = Screen(p, q);
    return {combined, Divide(V(combined - p), combined)};
  }
};

template <class Form>
void BlendBurnPlanes8(const uint8_t* base, uint8_t* destination, const uint8_t* blend, int32_t rows,
                      int32_t columns, int32_t baseStride, int32_t destinationStride,
                      int32_t blendStride) {
  const TruncatingScope scope;
  ApplyToRows<Form>(rows, columns, Output{{destination, destinationStride}}, Burn{},
                    Plane{base, baseStride}, Plane{blend, blendStride});
}

template <class Form>
void BlendScreenShare8(uint8_t* share, uint8_t* combined, int32_t rows, int32_t columns,
                       int32_t shareStride, int32_t combinedStride) {
  const TruncatingScope scope;
  ApplyToRows<Form>(rows, columns, TwoTargets{{combined, combinedStride}, {share, shareStride}},
                    ScreenShare{});
}

}  // namespace vantrix
