// Body of extremes.h, for the units that instantiate it.
#pragma once

#include "common/groups.h"
#include "common/rows.h"
#include "suites/blend/extremes.h"

namespace vantrix {

// Counted from the destination's boundary.
inline constexpr intptr_t kStep = 2 * kGroupBytes;

// Takes samples in order and stores those that change: right for any overlap.
template <class Rule>
VX_INLINE void ApplyInOrder(intptr_t count, Rule rule, Target to, Plane from) {
  Singly<uint8_t>{count}.ForEach([=](auto sample) VX_INLINED {
    const auto after = ResultAt(sample, rule, to, from);
    if (after[0] != to.At(sample)[0]) to.Write(sample, after);
  });
}

template <class V, class Rule>
VX_INLINE void ApplyToBlock(Block<V> block, Rule rule, Target to, Plane from) {
  const V before = to.At(block);
  StoreChangedGroups(to.row + block.x, before, rule(before, from.At(block)));
}
// Two registers with one test: mostly both change or neither does.
template <class V, class Rule>
VX_INLINE void ApplyToBlocks(Block<V> block, Block<V> next, Rule rule, Target to, Plane from) {
  const V before = to.At(block), nextBefore = to.At(next);
  const V after = rule(before, from.At(block)), nextAfter = rule(nextBefore, from.At(next));
  if (AllSet((after == before) & (nextAfter == nextBefore))) return;
  StoreChangedGroups(to.row + block.x, before, after);
  StoreChangedGroups(to.row + next.x, nextBefore, nextAfter);
}

// Takes samples x to `end`, whole steps, in registers of kBytes bytes, then of half of that.
template <int kBytes, class Rule>
VX_INLINE void ApplyToSteps(intptr_t x, intptr_t end, Rule rule, Target to, Plane from) {
  using V = Lanes<uint8_t, kBytes>;
  for (; x + 2 * kBytes <= end; x += 2 * kBytes)
    ApplyToBlocks(Block<V>{x}, Block<V>{x + kBytes}, rule, to, from);
  if constexpr (kBytes > kStep) {
    ApplyToSteps<kBytes / 2>(x, end, rule, to, from);
  } else if constexpr (kBytes == kStep) {
    if (x < end) ApplyToBlock(Block<V>{x}, rule, to, from);
  }
}

// Takes a row of at least one step.
template <class Form, class Rule>
VX_INLINE void ApplyToLong(intptr_t count, Rule rule, Target to, Plane from) {
  constexpr int kWidest = Form::kBytes < kStep ? Form::kBytes : kStep;
  using Widest = Lanes<uint8_t, kWidest>;
  const intptr_t head = ToBoundary<kGroupBytes>(to.row);
  if (count - head < kStep) return ApplyToRow(Blocks<Widest>{count}, rule, to, from);
  const intptr_t end = head + (count - head) / kStep * kStep;
  ApplyToShort(head, rule, to, from);
  ApplyToSteps<Form::kBytes>(head, end, rule, to, from);
  if (count - end >= kGroupBytes)
    ApplyToRow(Blocks<Group<uint8_t>>{count, end}, rule, to, from);
  else
    ApplyToShort(count - end, rule, to.From(end), from.From(end));
}

template <class Mode, class Form>
void ChangedBlocks(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t columns,
                   int32_t sourceStride, int32_t destinationStride) {
  if (rows < 1 || columns < 1) return;
  const Target target{destination, destinationStride};
  const Plane plane{source, sourceStride};
  const auto inEachRow = [=](auto work) VX_INLINED {
    ForEachRow(
        rows, [=](Target to, Plane from) VX_INLINED { work(columns, Mode{}, to, from); }, target,
        plane);
  };
  if constexpr (Form::kBytes > 1)
    if (columns < kStep) return ApplyToRows<Form>(rows, columns, target, Mode{}, plane);
  // Registers read samples before others are written.
  if (Form::kBytes == 1 || OverlapsInPart(plane, target, rows, columns))
    return inEachRow([](auto... row) VX_INLINED { ApplyInOrder(row...); });
  if constexpr (Form::kBytes > 1)
    inEachRow([](auto... row) VX_INLINED { ApplyToLong<Form>(row...); });
}

}  // namespace vantrix
