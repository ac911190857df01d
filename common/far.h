// Planes that no cache holds.
//
// The processor prefetches rows that are read from end to end. It starts anew on each page, and a
// kernel that takes several rows side by side, or a part of each row, waits for memory often. Such
// a kernel asks for the cache lines itself that it will load and store. That reads and writes
// nothing and never faults, so it may also ask for lines beyond a plane.
#pragma once

#include "common/lanes.h"

namespace vantrix {

// If the planes of a call have more bytes, they come from memory. In smaller ones prefetching costs
// more than it brings. Measured.
inline constexpr int64_t kFarBytes = int64_t{8} << 20;

// `rows` has 32 bits; `rowBytes` counts the bytes of a row in all planes.
VX_INLINE constexpr bool AreFar(int64_t rows, int64_t rowBytes) {
  return rowBytes > kFarBytes || rows * rowBytes > kFarBytes;
}

inline constexpr intptr_t kCacheLine = 64;

// For samples that are taken next.
VX_LANE void PrefetchSoon(const void* at) { __builtin_prefetch(at); }
// For samples that are taken after a whole row: the line goes to the second-level cache, as the
// first-level cache would not hold it until then.
VX_LANE void PrefetchLater(const void* at) { __builtin_prefetch(at, 0, 2); }

// PrefetchLater for `bytes` bytes of each row, a few thousand at most. A row is prefetched piece by
// piece, as the row before it is taken: for more bytes at once the processor would wait.
void PrefetchRows(const uint8_t* first, intptr_t stride, int32_t rows, intptr_t bytes);

}  // namespace vantrix
