// Body of extremes.h, for the units that instantiate it.
#pragma once

#include "common/groups.h"
#include "common/rows.h"
#include "suites/blend/extremes.h"

namespace vantrix {

// Blocks are stored or left alone whole; steps are what a row is measured in.
inline constexpr intptr_t kStoreBlock = 16;
inline constexpr intptr_t kStep = 2 * kStoreBlock;
// Samples that are read before the first of them is written.
template <class Form>
inline constexpr intptr_t kAtOnce = 2 * Form::kBytes;

// In order, and storing changed samples only: right for any overlap.
template <class Rule>
VX_INLINE void ApplyInOrder(intptr_t count, Rule rule, Target to, Plane from) {
  Singly<uint8_t>{count}.ForEach([=](auto sample) VX_INLINED {
    const auto after = ResultAt(sample, rule, to, from);
    if (after[0] != to.At(sample)[0]) to.Write(sample, after);
  });
}

// Two registers under one test, as most steps change both or neither.
template <class V, class Rule>
VX_INLINE void StoreChangedBlocks(intptr_t x, Rule rule, Target to, Plane from) {
  const Block<V> here{x}, next{x + kLaneCount<V>};
  const V before = to.At(here), nextBefore = to.At(next);
  const V after = rule(before, from.At(here)), nextAfter = rule(nextBefore, from.At(next));
  if (AllSet((after == before) & (nextAfter == nextBefore))) return;
  StoreChangedGroups(to.row + here.x, before, after);
  StoreChangedGroups(to.row + next.x, nextBefore, nextAfter);
}

template <class Form, class Rule>
VX_INLINE void StoreChangedInBlocks(intptr_t count, Rule rule, Target to, Plane from) {
  using V = Register<uint8_t, Form>;
  const auto writeAll = [=](intptr_t first, intptr_t samples) VX_INLINED {
    ApplyInBlocks<Form>(samples, rule, to.From(first), from.From(first));
  };
  intptr_t x = -reinterpret_cast<uintptr_t>(to.row) & (kStoreBlock - 1);
  if (count - x < kStep) return writeAll(0, count);
  writeAll(0, x);
  const intptr_t end = x + (count - x) / kStep * kStep;
  for (; x + kAtOnce<Form> <= end; x += kAtOnce<Form>) StoreChangedBlocks<V>(x, rule, to, from);
  if constexpr (kAtOnce<Form> > kStep)
    for (; x < end; x += kStep) StoreChangedBlocks<Lanes<uint8_t, kStoreBlock>>(x, rule, to, from);
  writeAll(x, count - x);
}

template <class Mode, class Form>
void ChangedBlocks(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t columns,
                   int32_t sourceStride, int32_t destinationStride) {
  const intptr_t count = columns;
  const auto row = [=](Target to, Plane from) VX_INLINED {
    constexpr Mode rule;
    if constexpr (Form::kBytes == 1) {
      ApplyInOrder(count, rule, to, from);
    } else {
      // Some samples are read before others are written; a source a little behind would
      // have been changed by then.
      const auto ahead =
          reinterpret_cast<uintptr_t>(to.row) - reinterpret_cast<uintptr_t>(from.row);
      if (ahead > 0 && ahead < uintptr_t{kAtOnce<Form>}) return ApplyInOrder(count, rule, to, from);
      StoreChangedInBlocks<Form>(count, rule, to, from);
    }
  };
  ForEachRow(rows, row, Target{destination, destinationStride}, Plane{source, sourceStride});
}

}  // namespace vantrix
