// Walks the rows of planes and applies a rule to every sample.
//
// A rule is a function object on registers of samples. It is given the target's
// sample first, where the target is read, and then one sample of each operand;
// it returns the target's new sample. It may hold nothing that differs between
// samples: a row is worked on in whatever order and width is quickest.
//
// Places and counts are in samples, strides in bytes.
#pragma once

#include "common/forms.h"
#include "common/lane_ops.h"

namespace vantrix {

// The operands of a rule: a plane, or one value for every sample.
template <class T>
struct PlaneOf {
  using Sample = T;
  const T* row;
  int32_t stride;  // bytes from a row to the next, may be negative

  template <class V>
  VX_LANE V At(intptr_t x) const {
    return Load<V>(row + x);
  }
  template <class V, int kHalf>
  VX_LANE V Ends(intptr_t count) const {
    return LoadEnds<V, kHalf>(row, count);
  }
  VX_LANE PlaneOf From(intptr_t x) const { return {row + x, stride}; }
  VX_LANE void NextRow() { row = Below(row, stride); }
};
using Plane = PlaneOf<uint8_t>;
using WordPlane = PlaneOf<uint16_t>;

struct Constant {
  uint8_t value;

  template <class V>
  VX_LANE V At(intptr_t) const {
    return Fill<V>(value);
  }
  template <class V, int>
  VX_LANE V Ends(intptr_t) const {
    return Fill<V>(value);
  }
  VX_LANE Constant From(intptr_t) const { return *this; }
  VX_LANE void NextRow() {}
};

// A plane of weights. Masks are mostly empty or full over large areas, so a
// block of weights that is all 0 or all 255 is told apart before it is used.
struct Weights : Plane {
  enum Cover { kNone, kSome, kAll };

  // Compared in words, in general registers: on a mask that varies the test hides
  // behind the vector arithmetic and costs nothing.
  template <class V>
  VX_LANE Cover CoverAt(intptr_t x) const {
    const uint64_t first = LoadWord(row + x);
    for (size_t i = 8; i < sizeof(V); i += 8)
      if (LoadWord(row + x + i) != first) return kSome;
    return first == 0 ? kNone : first == ~uint64_t{0} ? kAll : kSome;
  }
};

// The plane that is written: read first (TargetOf), or never read (OutputOf).
template <class T>
struct TargetOf {
  using Sample = T;
  T* row;
  int32_t stride;

  static constexpr bool kIsRead = true;
  template <class V>
  VX_LANE V At(intptr_t x) const {
    return Load<V>(row + x);
  }
  template <class V, int kHalf>
  VX_LANE V Ends(intptr_t count) const {
    return LoadEnds<V, kHalf>(row, count);
  }
  template <class V>
  VX_LANE void Write(intptr_t x, V samples) const {
    Store(row + x, samples);
  }
  template <int kHalf, class V>
  VX_LANE void WriteEnds(intptr_t count, V samples) const {
    StoreEnds<kHalf>(row, count, samples);
  }
  VX_LANE TargetOf From(intptr_t x) const { return {row + x, stride}; }
  VX_LANE void NextRow() { row = Below(row, stride); }
};
template <class T>
struct OutputOf : TargetOf<T> {
  static constexpr bool kIsRead = false;
};
using Target = TargetOf<uint8_t>;
using Output = OutputOf<uint8_t>;
using WordTarget = TargetOf<uint16_t>;
using WordOutput = OutputOf<uint16_t>;

// Two planes that are read and written together: a rule takes and returns a pair.
template <class V>
struct Pair {
  V first, second;
};
template <class T>
struct TwoTargetsOf {
  using Sample = T;
  TargetOf<T> first, second;

  static constexpr bool kIsRead = true;
  template <class V>
  VX_LANE Pair<V> At(intptr_t x) const {
    return {first.template At<V>(x), second.template At<V>(x)};
  }
  template <class V, int kHalf>
  VX_LANE Pair<V> Ends(intptr_t count) const {
    return {first.template Ends<V, kHalf>(count), second.template Ends<V, kHalf>(count)};
  }
  template <class V>
  VX_LANE void Write(intptr_t x, Pair<V> samples) const {
    first.Write(x, samples.first);
    second.Write(x, samples.second);
  }
  template <int kHalf, class V>
  VX_LANE void WriteEnds(intptr_t count, Pair<V> samples) const {
    first.template WriteEnds<kHalf>(count, samples.first);
    second.template WriteEnds<kHalf>(count, samples.second);
  }
  VX_LANE void NextRow() {
    first.NextRow();
    second.NextRow();
  }
};
using TwoTargets = TwoTargetsOf<uint8_t>;
using TwoWordTargets = TwoTargetsOf<uint16_t>;

template <class V, class Rule, class To, class... From>
VX_INLINE auto ResultAt(intptr_t x, Rule rule, To to, From... from) {
  if constexpr (To::kIsRead)
    return rule(to.template At<V>(x), from.template At<V>(x)...);
  else
    return rule(from.template At<V>(x)...);
}

template <class V, class Rule, class To, class... From>
VX_INLINE void ApplyAt(intptr_t x, Rule rule, To to, From... from) {
  to.Write(x, ResultAt<V>(x, rule, to, from...));
}

// Under a plane of weights: a rule that weights another brings that as `full`.
template <class V, class Rule, class Source>
VX_INLINE void ApplyAt(intptr_t x, Rule rule, Target to, Source source, Weights weights) {
  if constexpr (kLaneCount<V> > 1) {
    const auto cover = weights.CoverAt<V>(x);
    if (cover == Weights::kNone) return;
    if (cover == Weights::kAll) return ApplyAt<V>(x, rule.full, to, source);
  }
  to.Write(x, ResultAt<V>(x, rule, to, source, weights));
}

// A row that is two overlapping halves, of kHalf bytes each, in one register.
template <int kHalf, class Rule, class To, class... From>
VX_INLINE void ApplyToEnds(intptr_t count, Rule rule, To to, From... from) {
  using V = Lanes<typename To::Sample, 16 / sizeof(typename To::Sample)>;
  if constexpr (To::kIsRead)
    to.template WriteEnds<kHalf>(
        count, rule(to.template Ends<V, kHalf>(count), from.template Ends<V, kHalf>(count)...));
  else
    to.template WriteEnds<kHalf>(count, rule(from.template Ends<V, kHalf>(count)...));
}

// A block of them ends the row, reaching back over the one before. It is computed
// first, from the original samples, and stored last. Two blocks a round, as for the
// lightest rules walking is a third of the work.
template <class V, class Rule, class To, class... From>
VX_INLINE void ApplyInBlocks(intptr_t count, Rule rule, To to, From... from) {
  const intptr_t lastBlock = count - kLaneCount<V>;
  const auto last = ResultAt<V>(lastBlock, rule, to, from...);
#pragma GCC unroll 2
  for (intptr_t x = 0; x < lastBlock; x += kLaneCount<V>) ApplyAt<V>(x, rule, to, from...);
  to.Write(lastBlock, last);
}

// A row of fewer than 16 bytes.
template <class Rule, class To, class... From>
VX_INLINE void ApplyToShort(intptr_t count, Rule rule, To to, From... from) {
  if (count >= 8) return ApplyToEnds<8>(count, rule, to, from...);
  if (count >= 4) return ApplyToEnds<4>(count, rule, to, from...);
  if (count >= 2) return ApplyToEnds<2>(count, rule, to, from...);
  if (count == 1) ApplyAt<Lanes<uint8_t, 1>>(0, rule, to, from...);
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
constexpr intptr_t FewestInRegister() {
  if constexpr (requires { Rule::kFewestInRegister; })
    return Rule::kFewestInRegister;
  else
    return 2;
}

// Applies rule to `rows` rows of `columns` samples; a count below 1 touches no
// memory.
//
// Except in the form of one sample, hardly a sample is taken alone: a row of a block
// or more ends in a block that overlaps the one before, a shorter one is two
// overlapping halves in one register.
//
// An operand may be the target itself. One that overlaps it at an offset gives
// whatever the order of work gives.
template <class Form, class To, class Rule, class... From>
VX_INLINE void BlendRows(int32_t rows, int32_t columns, To to, Rule rule, From... from) {
  using T = typename To::Sample;
  constexpr intptr_t kSize = sizeof(T);
  using One = Lanes<T, 1>;
  const intptr_t count = columns;
  const auto inEachRow = [&](auto work) VX_INLINED { ForEachRow(rows, work, to, from...); };
  const auto inBlocks = [&]<int kBytes>(std::integral_constant<int, kBytes>) VX_INLINED {
    inEachRow([=](auto... planes)
                  VX_INLINED { ApplyInBlocks<Lanes<T, kBytes / kSize>>(count, rule, planes...); });
  };
  const auto asEnds = [&]<int kHalf>(std::integral_constant<int, kHalf>) VX_INLINED {
    inEachRow([=](auto... planes) VX_INLINED { ApplyToEnds<kHalf>(count, rule, planes...); });
  };
  if constexpr (Form::kBytes > 1) {
    constexpr intptr_t kFewest = FewestInRegister<Rule>();
    static_assert(kFewest >= 2, "two ends of one sample are two samples");
    if (count * kSize >= Form::kBytes) return inBlocks(std::integral_constant<int, Form::kBytes>{});
    if (Form::kBytes > 16 && count * kSize >= 16)
      return inBlocks(std::integral_constant<int, 16>{});
    if (count >= kFewest) {
      if (count * kSize >= 8) return asEnds(std::integral_constant<int, 8>{});
      if (count * kSize >= 4) return asEnds(std::integral_constant<int, 4>{});
      if constexpr (kSize == 1) return asEnds(std::integral_constant<int, 2>{});
    }
  }
  inEachRow([=](auto... planes) VX_INLINED {
    for (intptr_t x = 0; x < count; ++x) ApplyAt<One>(x, rule, planes...);
  });
}

}  // namespace vantrix
