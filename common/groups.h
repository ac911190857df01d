// The 16-byte groups of a register.
#pragma once

#include "common/lane_ops.h"

namespace vantrix {

// Stores those groups in which a lane changed, and no others: one test for a register in
// which none did.
template <class V, class T>
VX_LANE void StoreChangedGroups(T* to, V before, V after) {
  if constexpr (sizeof(V) == 16) {
    if (!AllSet(after == before)) Store(to, after);
  } else if constexpr (sizeof(V) == 64 && kWidestRegister == 64) {
    // A bit a 32-bit lane, four to a group; a group that has one has them all.
    uint32_t changed = _mm512_cmpneq_epi32_mask(Bits(before), Bits(after));
    if (changed == 0) return;
    changed |= changed >> 1;
    changed = (changed | changed >> 2) & 0x1111;
    _mm512_mask_storeu_epi32(to, static_cast<__mmask16>(changed * 15), Bits(after));
  } else {
    if (AllSet(after == before)) return;
    StoreChangedGroups(to, Half<0>(before), Half<0>(after));
    StoreChangedGroups(to + kLaneCount<V> / 2, Half<1>(before), Half<1>(after));
  }
}

}  // namespace vantrix
