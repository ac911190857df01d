// Body of extremes.h, for the units that instantiate it.
#pragma once

#include "common/rows.h"
#include "suites/blend/extremes.h"

namespace vantrix {

inline constexpr intptr_t kStoreBlock = 16;
inline constexpr intptr_t kStep = 2 * kStoreBlock;

// In order, and storing changed samples only: right for any overlap.
template <class Rule>
VX_INLINE void ApplyInOrder(intptr_t count, Rule rule, Target to, Plane from) {
  using One = Lanes<uint8_t, 1>;
  for (intptr_t x = 0; x < count; ++x) {
    const One after = ResultAt<One>(x, rule, to, from);
    if (after[0] != to.row[x]) to.Write(x, after);
  }
}

// Two blocks under one test, as most steps change both or neither.
template <class Rule>
VX_INLINE void StoreChangedBlocks(intptr_t x, Rule rule, Target to, Plane from) {
  const auto before = to.At<Bytes16>(x), next = to.At<Bytes16>(x + kStoreBlock);
  const auto after = rule(before, from.At<Bytes16>(x));
  const auto nextAfter = rule(next, from.At<Bytes16>(x + kStoreBlock));
  if (AllSet((after == before) & (nextAfter == next))) return;
  if (!AllSet(after == before)) to.Write(x, after);
  if (!AllSet(nextAfter == next)) to.Write(x + kStoreBlock, nextAfter);
}

template <class Mode, class Form>
void ChangedBlocks(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t columns,
                   int32_t sourceStride, int32_t destinationStride) {
  const intptr_t count = columns;
  const auto row = [=](Target to, Plane from) VX_INLINED {
    constexpr Mode rule;
    // A step reads all its samples before it writes one; a source less than a step
    // behind would have been changed by then.
    const auto ahead = reinterpret_cast<uintptr_t>(to.row) - reinterpret_cast<uintptr_t>(from.row);
    if (Form::kBytes == 1 || (ahead > 0 && ahead < uintptr_t{kStep}))
      return ApplyInOrder(count, rule, to, from);
    intptr_t x = 0;
    if (count > kStep) {
      x = -reinterpret_cast<uintptr_t>(to.row) & (kStoreBlock - 1);
      ApplyToShort(x, rule, to, from);
    }
    for (; x + kStep <= count; x += kStep) StoreChangedBlocks(x, rule, to, from);
    if (x + kStoreBlock <= count)
      ApplyInBlocks<Bytes16>(count - x, rule, to.From(x), from.From(x));
    else
      ApplyToShort(count - x, rule, to.From(x), from.From(x));
  };
  ForEachRow(rows, row, Target{destination, destinationStride}, Plane{source, sourceStride});
}

}  // namespace vantrix
