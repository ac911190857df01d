// Loads and stores under a mask, if the unit's instructions have masks.
#pragma once

#include "common/registers.h"

namespace vantrix {

static constexpr bool kHasMasks = kWidestRegister == 64;

// A place of `count` samples, fewer than a 16-byte register holds: those from
// sample x on, or those before it. No other byte is read; the other lanes of the
// register are 0. Only samples for which a condition holds are written. A load
// soon afterwards of any of the 16 bytes, written or not, waits for the store.
template <class V>
struct SomeLanes {
  static_assert(sizeof(V) == 16 && sizeof(LaneOf<V>) == 1);
  using Register = V;
  intptr_t start;
  __mmask16 mask;

  VX_LANE static SomeLanes FirstAfter(intptr_t x, intptr_t count) {
    return {x, static_cast<__mmask16>((1u << count) - 1)};
  }
  VX_LANE static SomeLanes LastBefore(intptr_t x, intptr_t count) {
    return {x - 16, static_cast<__mmask16>(0xFFFF0000u >> count)};
  }

  template <class T>
  VX_LANE V LoadFrom(const T* row) const {
    return As<V>(_mm_maskz_loadu_epi8(mask, row + start));
  }
  template <class T, class Condition>
  VX_LANE void StoreWhere(Condition condition, T* row, V samples) const {
    const __mmask16 holds = _mm_movepi8_mask(As<__m128i>(condition));
    _mm_mask_storeu_epi8(row + start, holds & mask, As<__m128i>(samples));
  }
};

}  // namespace vantrix
