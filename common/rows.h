// Applies a rule to every sample of every row.
//
// A rule is a function object on registers of samples. Its arguments are the
// target's samples, if the target is read, and then the samples of each operand.
// It returns the target's new samples. It may hold nothing that differs from
// sample to sample: a row is taken in whatever order and width is fastest.
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

template <class Rule, class To, class... From>
concept RuleOn = requires(Rule rule, To to, From... from) {
  ResultAt(Block<Lanes<typename To::Sample, 1>>{}, rule, to, from...);
};

template <class Place, class Rule, class To, class... From>
VX_INLINE void ApplyAt(Place place, Rule rule, To to, From... from) {
  to.Write(place, ResultAt(place, rule, to, from...));
}

// Under a plane of weights. The rule's `full` is the rule
// for a weight of 255; a weight of 0 changes nothing.
template <class V, class Rule, class To, class Source>
VX_INLINE void ApplyAt(Block<V> block, Rule rule, To to, Source source, Weights weights) {
  if constexpr (kLaneCount<V> > 1) {
    const auto cover = weights.CoverAt(block);
    if (cover == Weights::kNone) return;
    if (cover == Weights::kAll) return ApplyAt(block, rule.full, to, source);
  }
  to.Write(block, ResultAt(block, rule, to, source, weights));
}

// A row of at least this many registers of a wide form is stored at the target's boundaries: a
// store that crosses a cache line costs as much as two. Measured.
inline constexpr intptr_t kRegistersToAlign = 12;

// The last block reaches back over the block before it, so it is computed first, from the original
// samples, and stored last. So is a first block that reaches over the target's boundary.
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

// Rows of fewer samples than this are faster taken one sample at a time than in one register: 2,
// unless a rule says otherwise.
template <class Rule>
constexpr int FewestInRegister() {
  if constexpr (requires { Rule::kFewestInRegister; })
    return Rule::kFewestInRegister;
  else
    return 2;
}

// Does work that uses no register of a form: Work{}(arguments...). The units of
// the scalar and SSE2 forms have the body; those of the other forms call it, so
// that the library has it once. So work and rules must have names outside their
// unit. Marked as used: otherwise a compiler may keep only a copy made for one
// of its callers.
template <class Work, class... Arguments>
[[gnu::noinline, gnu::used]] void DoSharedOn(const Arguments&... arguments)
#if !defined(__SSSE3__)
{
  Work{}(arguments...);
}
#else
    ;
#endif

// Passes references to copies. A structure itself would be stored in parts and loaded whole, and
// such a load waits for the stores.
template <class Work, class... Arguments>
VX_INLINE void DoShared(Arguments... arguments) {
  DoSharedOn<Work>(arguments...);
}

// Applies a rule one sample at a time.
struct ApplySingly {
  template <class To, class Rule, class... From>
  VX_INLINE void operator()(int32_t rows, int32_t columns, To to, Rule rule, From... from) const {
    ForEachRow(
        rows,
        [=](auto... planes)
            VX_INLINED { ApplyToRow(Singly<typename To::Sample>{columns}, rule, planes...); },
        to, from...);
  }
};

// Applies rule to `rows` rows of `columns` samples; a count below 1 touches no memory.
//
// An operand may be the target itself. If it overlaps the
// target in any other way, samples are taken one at a time.
template <class Form, RuleTarget To, class Rule, Operand... From>
  requires RuleOn<Rule, To, From...>
VX_INLINE void ApplyToRows(int32_t rows, int32_t columns, To to, Rule rule, From... from) {
  if (rows < 1 || columns < 1) return;
  const auto inRegisters = [=](auto walk) VX_INLINED {
    ForEachRow(
        rows, [=](auto... planes) VX_INLINED { ApplyToRow(walk, rule, planes...); }, to, from...);
  };
  if ((OverlapsInPart(from, to, rows, columns) || ... || OverlapsItself(to, rows, columns)) ||
      !WithRegisters<Form, typename To::Sample, FewestInRegister<Rule>()>(columns, inRegisters))
    DoShared<ApplySingly>(rows, columns, to, rule, from...);
}

}  // namespace vantrix
