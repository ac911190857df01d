// Bodies of propagate.h, for the units that instantiate them.
#pragma once

#include "common/changed.h"
#include "common/rows.h"
#include "suites/select/in_order.h"
#include "suites/select/propagate.h"

namespace vantrix {
namespace {

// An entry's priority and value as they become, as they were, and in which lanes each is written.
template <class V>
struct Received : Pair<V> {
  Pair<V> own;
  V writesPriority, writesValue;
};
// A carried priority of kPassedOver is never received. Blocks may overlap: to receive a pair a
// second time changes nothing.
template <uint16_t kPassedOver>
struct Receive {
  template <class V>
  VX_INLINE Received<V> operator()(Pair<V> own, Pair<V> before) const {
    const V carried = before.first + As<V>(before.first > 1);  // minus 1: a true lane is -1
    const auto keeps = (carried == LaneOf<V>(kPassedOver)) | (own.first > carried);
    const V receives = Opaque(As<V>(~keeps));
    const auto isNew = IsNegative(receives);
    const Pair<V> after{isNew ? carried : own.first, isNew ? before.second : own.second};
    // With 0x8000 passed over, 0 is received too; mostly by 0, which changes nothing.
    if constexpr (kPassedOver != 0)
      return {after, own, As<V>(after.first != own.first), As<V>(after.second != own.second)};
    return {after, own, receives, receives};
  }
};

// One entry of each line, in both planes. A place is stored if an entry in it is written.
template <class T>
struct EntriesAt {
  using Sample = T;
  static constexpr bool kIsRead = true;
  TargetOf<T> priority, value;

  template <class Place>
  VX_LANE auto At(Place place) const {
    return Pair<typename Place::Register>{priority.At(place), value.At(place)};
  }
  template <class Place, class V>
  VX_LANE void Write(Place place, const Received<V>& entries) const {
    StoreChanged(place, priority.row, entries.writesPriority, entries.own.first, entries.first);
    StoreChanged(place, value.row, entries.writesValue, entries.own.second, entries.second);
  }
  template <int kBytes>
  VX_LANE intptr_t BoundaryAfter(intptr_t x) const {
    return priority.template BoundaryAfter<kBytes>(x);
  }
  VX_LANE void NextRow() {
    priority.NextRow();
    value.NextRow();
  }
};

// Walks lines that lie side by side. Many lines are walked together, all of them one entry on at a
// time. If there are few, a register of lines is walked to its end before the next one: its last
// entries stay in registers, as a load of them would wait for their store.
template <class Form, class Rule, class T>
VX_INLINE void PropagateTogether(Rule rule, Lines<T> lines) {
  if (lines.count < 1) return;
  const auto entryBytes = static_cast<int32_t>(lines.entryStep * intptr_t{sizeof(T)});
  const auto atEntry = [=](intptr_t i) VX_INLINED {
    const Lines<T> from = lines.FromEntry(i);
    return EntriesAt<T>{{from.priority, entryBytes}, {from.value, entryBytes}};
  };
  constexpr int32_t kFew = 4 * kLaneCount<Register<T, Form>>;
  if (Form::kBytes > 1 && lines.count < kFew)
    WithBlocks<Form, T>(lines.count, [=](auto walk) VX_INLINED {
      walk.ForEach([=](auto place) VX_INLINED {
        auto before = atEntry(0).At(place);
        for (int32_t i = 1; i < lines.length; ++i) {
          const auto received = rule(atEntry(i).At(place), before);
          atEntry(i).Write(place, received);
          before = received;
        }
      });
    });
  else
    WithBlocks<Form, T>(lines.count, [=](auto walk) VX_INLINED {
      ForEachRow(
          lines.length - 1, [=](auto... entries) VX_INLINED { ApplyToRow(walk, rule, entries...); },
          atEntry(1), atEntry(0));
    });
}

// Walks one line after another, one entry at a time. What is carried stays in registers. Which
// entries change cannot be predicted.
template <class T>
VX_INLINE void PropagateSingly(Lines<T> lines) {
  for (; lines.count > 0; lines = lines.After(1)) {
    T *p = lines.priority, *v = lines.value;
    T carried = *p, carriedValue = *v;
    for (int32_t i = 1; i < lines.length; ++i) {
      p += lines.entryStep;
      v += lines.entryStep;
      carried = static_cast<T>(carried - (carried > 1));
      const bool keeps = carried == 0 || *p > carried;
      carried = keeps ? *p : carried;
      carriedValue = keeps ? *v : carriedValue;
      StoreIf(*p != carried, p, carried);
      StoreIf(*v != carriedValue, v, carriedValue);
    }
  }
}

// As many lines as a register has lanes, and as many of their entries.
template <class V>
struct Tile {
  static constexpr int kSide = kLaneCount<V>;
  V rows[kSide];

  VX_INLINE void LoadFrom(const LaneOf<V>* from, intptr_t lineStep) {
#pragma GCC unroll 16
    for (int i = 0; i < kSide; ++i) rows[i] = Load<V>(from + i * lineStep);
  }
  VX_INLINE void StoreTo(LaneOf<V>* to, intptr_t lineStep) const {
#pragma GCC unroll 16
    for (int i = 0; i < kSide; ++i) {
      LaneOf<V>* const line = to + i * lineStep;
      const V before = Load<V>(line);
      StoreChanged(Block<V>{0}, line, before != rows[i], before, rows[i]);
    }
  }
  // Interleaves the two halves of the rows log2(kSide) times.
  VX_INLINE void Transpose() {
#pragma GCC unroll 4
    for (int round = 1; round < kSide; round *= 2) {
      V mixed[kSide];
#pragma GCC unroll 8
      for (int i = 0; i < kSide / 2; ++i) {
        mixed[2 * i] = InterleaveLow(rows[i], rows[i + kSide / 2]);
        mixed[2 * i + 1] = InterleaveHigh(rows[i], rows[i + kSide / 2]);
      }
#pragma GCC unroll 16
      for (int i = 0; i < kSide; ++i) rows[i] = mixed[i];
    }
  }
};

// Walks lines whose entries are adjacent in memory, forwards (an entry step of 1) or backwards
// (-1): tiles of entries are transposed so that lines lie side by side, walked, and transposed
// back.
template <class V, bool kForwards, class T>
VX_INLINE void PropagateInTiles(Lines<T> lines) {
  constexpr int kSide = kLaneCount<V>;
  const intptr_t lineStep = lines.lineStep;
  for (; lines.count >= kSide; lines = lines.After(kSide)) {
    T first[2][kSide];
    for (int i = 0; i < kSide; ++i) {
      first[0][i] = lines.priority[i * lineStep];
      first[1][i] = lines.value[i * lineStep];
    }
    Pair<V> before{Load<V>(first[0]), Load<V>(first[1])};
    intptr_t entry = 1;
    for (; entry + kSide <= lines.length; entry += kSide) {
      const intptr_t lowest = kForwards ? entry : -(entry + kSide - 1);
      Tile<V> priorities, values;
      priorities.LoadFrom(lines.priority + lowest, lineStep);
      values.LoadFrom(lines.value + lowest, lineStep);
      priorities.Transpose();
      values.Transpose();
#pragma GCC unroll 16
      for (int k = 0; k < kSide; ++k) {
        const int at = kForwards ? k : kSide - 1 - k;
        before = Receive<0>{}({priorities.rows[at], values.rows[at]}, before);
        priorities.rows[at] = before.first;
        values.rows[at] = before.second;
      }
      priorities.Transpose();
      values.Transpose();
      priorities.StoreTo(lines.priority + lowest, lineStep);
      values.StoreTo(lines.value + lowest, lineStep);
    }
    // The tail, from the last entry of the tiles on.
    PropagateSingly(lines.First(kSide).FromEntry(entry - 1));
  }
  PropagateSingly(lines);
}

// Walks lines that do not lie side by side in increasing order.
template <class Form, class T>
VX_INLINE void PropagateApart(Lines<T> lines) {
  // Side by side in decreasing order: the last line is the lowest.
  if (lines.lineStep == -1)
    return PropagateTogether<Form>(Receive<0>{},
                                   lines.Part(1 - lines.count, lines.count, lines.length));
  if constexpr (Form::kBytes > 1) {
    // 16 bytes in every form: if steps are powers of two, twice as many lines of both planes fall
    // into the same sets of the cache and evict one another. Measured.
    using V = Lanes<T, 16 / sizeof(T)>;
    if (lines.entryStep == 1) return PropagateInTiles<V, true>(lines);
    if (lines.entryStep == -1) return PropagateInTiles<V, false>(lines);
  }
  PropagateSingly(lines);
}

}  // namespace

template <class Form>
void SelectPropagate8(uint8_t* priority, uint8_t* value, int32_t lineCount, int32_t lineLength,
                      int32_t lineStep, int32_t entryStep) {
  if (lineCount < 1 || lineLength < 2) return;
  const Lines<uint8_t> lines{priority, value, lineCount, lineLength, lineStep, entryStep};
  if (!EntriesAreApart(lines))
    PropagateInOrder<uint8_t>(lines, 0);
  else if (lineStep == 1)
    PropagateTogether<Form>(Receive<0>{}, lines);
  else
    PropagateApart<Form>(lines);
}

template <class Form>
void SelectPropagate16(uint16_t* priority, uint16_t* value, int32_t lineCount, int32_t lineLength,
                       int32_t lineStep, int32_t entryStep) {
  if (lineCount < 1 || lineLength < 2) return;
  const Lines<uint16_t> lines{priority,   value,         lineCount,
                              lineLength, lineStep >> 1, entryStep >> 1};
  const int32_t left = lines.lineStep == 1 ? lineCount & 7 : lineCount, grouped = lineCount - left;
  const Lines<uint16_t> groups = lines.First(grouped), rest = lines.After(grouped);
  if (!EntriesAreApart(lines)) {
    PropagateInOrder<uint16_t>(groups, 0x8000);
    return PropagateInOrder<uint16_t>(rest, 0);
  }
  if (lines.lineStep != 1) return PropagateApart<Form>(lines);
  PropagateTogether<Form>(Receive<0x8000>{}, groups);
  PropagateTogether<Form>(Receive<0>{}, rest);
}

}  // namespace vantrix
