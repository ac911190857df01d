// Walks the rows of planes and applies a rule to every sample.
//
// A rule is a function object on registers of samples. It is given the target's
// sample first, where the target is read, and then one sample of each operand;
// it returns the target's new sample. It may hold nothing that differs between
// samples: a row is worked on in whatever order and width is quickest.
#pragma once

#include "common/overlap.h"

namespace vantrix {

template <class Place, class Rule, class To, class... From>
VX_INLINE auto ResultAt(Place place, Rule rule, To to, From... from) {
  if constexpr (To::kIsRead)
    return rule(to.At(place), from.At(place)...);
  else
    return rule(from.At(place)...);
}

template <class Place, class Rule, class To, class... From>
VX_INLINE void ApplyAt(Place place, Rule rule, To to, From... from) {
  to.Write(place, ResultAt(place, rule, to, from...));
}

// Under a plane of weights: a rule that weights another brings that as `full`.
template <class V, class Rule, class To, class Source>
VX_INLINE void ApplyAt(Block<V> block, Rule rule, To to, Source source, Weights weights) {
  if constexpr (kLaneCount<V> > 1) {
    const auto cover = weights.CoverAt(block);
    if (cover == Weights::kNone) return;
    if (cover == Weights::kAll) return ApplyAt(block, rule.full, to, source);
  }
  to.Write(block, ResultAt(block, rule, to, source, weights));
}

// From so many registers on, a row of a wide form is taken at the boundaries of the target:
// there a register that crosses a line of the cache costs as much as two. Measured.
inline constexpr intptr_t kRegistersToAlign = 12;

// The last block reaches back over the one before, so it is computed first, from the
// original samples, and stored last; so is a first one that reaches over the boundary.
template <class V, int kMost, class Rule, class To, class... From>
VX_INLINE void ApplyToRow(Blocks<V, kMost> blocks, Rule rule, To to, From... from) {
  const auto apply = [=](auto block) VX_INLINED { ApplyAt(block, rule, to, from...); };
  const auto last = ResultAt(blocks.Last(), rule, to, from...);
  if (sizeof(V) > 16 && kMost == 0 &&
      blocks.end - blocks.start >= kRegistersToAlign * kLaneCount<V>) {
    const auto first = ResultAt(blocks.First(), rule, to, from...);
    blocks.ForEachBeforeLast(to.template BoundaryAfter<sizeof(V)>(blocks.start), apply);
    to.Write(blocks.First(), first);
  } else {
    blocks.ForEachBeforeLast(blocks.start, apply);
  }
  to.Write(blocks.Last(), last);
}
template <class Walk, class Rule, class To, class... From>
VX_INLINE void ApplyToRow(Walk walk, Rule rule, To to, From... from) {
  walk.ForEach([=](auto place) VX_INLINED { ApplyAt(place, rule, to, from...); });
}

// A row of fewer than 16 bytes.
template <class Rule, class To, class... From>
VX_INLINE void ApplyToShort(intptr_t count, Rule rule, To to, From... from) {
  using T = typename To::Sample;
  const auto apply = [=](auto walk) VX_INLINED { ApplyToRow(walk, rule, to, from...); };
  if (!WithEnds<T, 2>(count, apply)) apply(Singly<T>{count});
}

// Calls work(to, from...) with each row in turn.
template <class Work, class To, class... From>
VX_INLINE void ForEachRow(int32_t rows, Work work, To to, From... from) {
  for (; rows > 0; --rows) {
    work(to, from...);
    to.NextRow();
    (from.NextRow(), ...);
  }
}

// Fewer samples than this are quicker taken one by one than in one register: 2, unless
// a rule says otherwise.
template <class Rule>
constexpr int FewestInRegister() {
  if constexpr (requires { Rule::kFewestInRegister; })
    return Rule::kFewestInRegister;
  else
    return 2;
}

// One sample after another. Its body stands in the units without instructions of their own, which
// those of wider forms call too: it need be in the library once. So rules must have names outside
// their unit. Used: a compiler that sees no other call than its own may leave a copy made for that
// one alone.
template <class To, class Rule, class... From>
[[gnu::noinline, gnu::used]] void BlendSingly(int32_t rows, int32_t columns, To to, Rule rule,
                                              From... from)
#if !defined(__SSSE3__)
{
  ForEachRow(
      rows,
      [=](auto... planes)
          VX_INLINED { ApplyToRow(Singly<typename To::Sample>{columns}, rule, planes...); },
      to, from...);
}
#else
    ;
#endif

// Applies rule to `rows` rows of `columns` samples; a count below 1 touches no memory.
//
// An operand may be the target itself, or overlap it in any way: then samples are taken singly.
template <class Form, class To, class Rule, class... From>
VX_INLINE void BlendRows(int32_t rows, int32_t columns, To to, Rule rule, From... from) {
  if (rows < 1 || columns < 1) return;
  const auto inRegisters = [=](auto walk) VX_INLINED {
    ForEachRow(
        rows, [=](auto... planes) VX_INLINED { ApplyToRow(walk, rule, planes...); }, to, from...);
  };
  if ((OverlapsInPart(from, to, rows, columns) || ... || OverlapsItself(to, rows, columns)) ||
      !WithRegisters<Form, typename To::Sample, FewestInRegister<Rule>()>(columns, inRegisters))
    BlendSingly(rows, columns, to, rule, from...);
}

}  // namespace vantrix
