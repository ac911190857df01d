// The 16-byte groups of a register.
#pragma once

#include "common/operands.h"

namespace vantrix {

// Stores those groups in which a lane changed, and no others.
template <class V, class T>
VX_LANE void StoreChangedGroups(T* to, V before, V after) {
  if constexpr (sizeof(V) == 16) {
    if (!AllSet(after == before)) Store(to, after);
  } else if constexpr (sizeof(V) == 32 && kWidestRegister >= 32) {
    const uint32_t changed = ~SetBytes(after == before);  // a bit a byte
    const bool lowChanges = static_cast<uint16_t>(changed) != 0, highChanges = changed > 0xFFFF;
    if (__builtin_expect(lowChanges && highChanges, 1)) return Store(to, after);
    if (lowChanges) Store(to, Half<0>(after));
    if (highChanges) Store(to + kLaneCount<V> / 2, Half<1>(after));
  } else if constexpr (sizeof(V) == 64 && kWidestRegister == 64) {
    // A bit a 32-bit lane, four to a group; a group that has one has them all.
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

// Samples as they were read, and as they are to be. What was read counts: read again, a sample may
// be another thread's, whose store would be undone.
template <class V>
struct Change {
  V before, after;
};

// A target of whose blocks only those groups are stored in which a sample changes.
struct ChangedGroupsTarget : Target {
  template <class V>
  VX_LANE void Write(Block<V> block, Change<V> samples) const {
    StoreChangedGroups(row + block.x, samples.before, samples.after);
  }
  VX_LANE ChangedGroupsTarget From(intptr_t x) const { return {Target::From(x)}; }
};

}  // namespace vantrix
