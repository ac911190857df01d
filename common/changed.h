// Stores of only those samples that change: a plane on which nothing changes may be read-only.
#pragma once

#include "common/blocks.h"
#include "common/choose.h"

namespace vantrix {

// Stores the samples of a short row whose bits are set in `bytes`, one bit a byte of the register:
// mostly none or all of them, else one at a time.
template <class T, class V, int kBytes>
VX_INLINE void StoreSome(Ends<V, kBytes> ends, T* row, uint32_t bytes, V samples) {
  constexpr uint32_t kEnd = (1u << kBytes) - 1, kFirstBytes = sizeof(T) == 2 ? 0x55555555 : ~0u;
  const uint32_t count = static_cast<uint32_t>(ends.count) * uint32_t{sizeof(T)};
  const uint32_t some = (bytes & kEnd) | (bytes >> kBytes & kEnd) << (count - kBytes);
  if (some == 0) return;
  if (some + 1 == 1u << count) return ends.StoreTo(row, samples);
  T one[kLaneCount<V>];
  ends.StoreTo(one, samples);
  for (uint32_t rest = some & kFirstBytes; rest != 0; rest &= rest - 1) {
    const uint32_t x = static_cast<uint32_t>(__builtin_ctz(rest)) / uint32_t{sizeof(T)};
    row[x] = one[x];
  }
}

// Stores a block whole if `changes` holds in one of its lanes; of a short row, stores only samples
// that differ from before.
template <class T, class V, class Condition>
VX_INLINE void StoreChanged(Block<V> block, T* row, Condition changes, V, V after) {
  T* const to = row + block.x;
  // Masks vary, so a branch for each sample would be mispredicted.
  if constexpr (kLaneCount<V> == 1)
    StoreIf(changes[0] != 0, to, after[0]);
  else if (MostlySomeSet(changes))
    Store(to, after);
}
template <class T, class V, int kBytes, class Condition>
VX_INLINE void StoreChanged(Ends<V, kBytes> ends, T* row, Condition, V before, V after) {
  StoreSome(ends, row, static_cast<uint32_t>(SetBytes(after != before)), after);
}

}  // namespace vantrix
