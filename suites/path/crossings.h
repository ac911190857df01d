// The steps from a row's sorted crossings to the boundaries of the new shape. Each works in place
// and returns how many words the list then has; words after them stay as they are.
#pragma once

#include "common/lane_ops.h"
#include "suites/path/signatures.h"

namespace vantrix {

// No position: they have 31 bits.
inline constexpr uint32_t kNoPosition = 0xFFFFFFFF;

struct Positions {
  size_t count;
  bool repeat;  // whether neighbours are equal
};

// The non-zero rule: keeps the positions at which the winding number leaves or reaches 0.
VX_INLINE Positions ResolveByWinding(uint32_t* list, size_t count) {
  uint32_t winding = 0, previous = kNoPosition;
  bool isInside = false, repeat = false;
  size_t kept = 0;
  for (size_t i = 0; i < count; ++i) {
    const uint32_t entry = list[i], position = entry >> 1;
    winding += 2 * (entry & kUpward) - 1;
    if ((winding != 0) == isInside) continue;
    isInside = !isInside;
    list[kept++] = position;
    repeat |= position == previous;
    previous = position;
  }
  return {kept, repeat};
}

// The even-odd rule: keeps all positions.
VX_INLINE Positions ResolveByParity(uint32_t* list, size_t count) {
  uint32_t previous = kNoPosition;
  bool repeat = false;
  for (size_t i = 0; i < count; ++i) {
    const uint32_t position = list[i] >> 1;
    list[i] = position;
    repeat |= position == previous;
    previous = position;
  }
  return {count, repeat};
}

// Keeps one position of each run of equal ones that is odd in length, none of a run that is even.
VX_INLINE size_t CancelEqual(uint32_t* list, size_t count) {
  size_t kept = 0;
  for (size_t i = 0; i < count;) {
    const uint32_t position = list[i];
    const size_t start = i;
    while (i < count && list[i] == position) ++i;
    if ((i - start) % 2 != 0) list[kept++] = position;
  }
  return kept;
}

}  // namespace vantrix
