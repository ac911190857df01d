// The 16-byte groups of a register.
#pragma once

#include "common/lane_ops.h"

namespace vantrix {

// Of a target whose unchanged bytes others may own, a group that starts at a 16-byte boundary is
// stored or left alone as a whole.
inline constexpr intptr_t kGroupBytes = sizeof(Group<uint8_t>);

// Stores the groups in which a lane differs from before, and no others.
template <class V, class T>
VX_LANE void StoreChangedGroups(T* to, V before, V after) {
  if constexpr (sizeof(V) == 16) {
    if (!AllSet(after == before)) Store(to, after);
  } else if constexpr (sizeof(V) == 32 && kWidestRegister >= 32) {
    const uint32_t changed = ~SetBytes(after == before);  // a bit a byte
    if (changed == 0) return;
    const bool lowChanges = static_cast<uint16_t>(changed) != 0, highChanges = changed > 0xFFFF;
    if (__builtin_expect(lowChanges && highChanges, 1)) return Store(to, after);
    if (lowChanges)
      Store(to, Half<0>(after));
    else
      Store(to + kLaneCount<V> / 2, Half<1>(after));
  } else if constexpr (sizeof(V) == 64 && kWidestRegister == 64) {
    // One bit for each 32-bit lane. After the shifts bit 0
    // of each four says whether a group changed.
    uint32_t changed = _mm512_cmpneq_epi32_mask(Bits(before), Bits(after));
    if (changed == 0) return;
    changed |= changed >> 1;
    changed = (changed | changed >> 2) & 0x1111;
    if (changed == 0x1111) return Store(to, after);
    _mm512_mask_storeu_epi32(to, static_cast<__mmask16>(changed * 15), Bits(after));
  } else {
    if (AllSet(after == before)) return;
    StoreChangedGroups(to, Half<0>(before), Half<0>(after));
    StoreChangedGroups(to + kLaneCount<V> / 2, Half<1>(before), Half<1>(after));
  }
}

}  // namespace vantrix
