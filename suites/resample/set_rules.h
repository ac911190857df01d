// The filter rules on sets: on a register of output columns, one unit of each at a time.
//
//   Sum                  a register of sums
//   kTaps                taps in a unit
//   kUnitBytes           bytes of a unit in the source row
//   kStartRegisters      registers of the plan before those of the first unit
//   kWeightRegisters     registers of weights for a unit
//   Plan(words, k, units, weights)
//                        writes these registers from weights k .. k + 3 of the columns; k is a
//                        multiple of 4, weights.units[0] are the first two of each column
//   Start(words)         returns the register in which sums start
//   Add(sum, unit, weights)
//                        returns the sum with one more unit
//   Finish(sums)         returns a register of output samples in memory order, from the sums of as
//                        many consecutive sets as make one
//
// S is the register of the sets, as unsigned lanes.
#pragma once

#include "suites/resample/column_plan.h"

namespace vantrix {

template <class T, class S>
concept RuleOnSets =
    requires(uint32_t* words, typename T::Sum sum, S unit, Gathered<S, 2> weights) {
      { T::kTaps + T::kUnitBytes + T::kStartRegisters + T::kWeightRegisters } -> std::same_as<int>;
      T::Plan(words, 0, 1, weights);
      { T::Start(words) } -> std::same_as<typename T::Sum>;
      { T::Add(sum, unit, words) } -> std::same_as<typename T::Sum>;
    };

template <class Sample, class Access, class S>
struct SetRule;

// For units of two taps as 16-bit lanes: writes their weights, one register a unit.
template <class S>
VX_INLINE void PlanPairs(uint32_t* unit, bool isLast, Gathered<S, 2> weights) {
  Store(unit, weights.units[0]);
  if (!isLast) Store(unit + kLaneCount<S>, weights.units[1]);
}

// What the rules for 8-bit samples share.
template <class S>
struct SumsOf8 {
  using Sum = S;
  static constexpr int kStartRegisters = 0;

  VX_INLINE static Sum Start(const uint32_t*) { return Fill<Sum>(Filter<uint8_t>::kStart); }
  VX_INLINE static U8<S> Finish(const Sum (&sums)[4]) {
    return InMemoryOrder<4>(FinishBytes(sums[0], sums[1], sums[2], sums[3]));
  }
};

// A gathered unit is four bytes. As 16-bit lanes they are taps 0 and 2, and taps 1 and 3.
template <class S>
struct SetRule<uint8_t, ByGather, S> : SumsOf8<S> {
  static constexpr int kTaps = 4, kUnitBytes = 4, kWeightRegisters = 2;

  VX_INLINE static void Plan(uint32_t* words, int32_t k, int32_t, Gathered<S, 2> weights) {
    uint32_t* const unit = words + k / kTaps * kWeightRegisters * kLaneCount<S>;
    Store(unit, (weights.units[0] & 65535) | weights.units[1] << 16);
    Store(unit + kLaneCount<S>, weights.units[0] >> 16 | (weights.units[1] & 0xFFFF0000));
  }
  VX_INLINE static S Add(S sum, S unit, const uint32_t* weights) {
    const auto samples = As<U16<S>>(unit);
    return sum + ProductSums(samples & 255, LoadAligned<U16<S>>(weights)) +
           ProductSums(samples >> 8, LoadAligned<U16<S>>(weights + kLaneCount<S>));
  }
};

// A unit from a window is two bytes, already as two 16-bit lanes.
template <class Access, class S>
struct SetRule<uint8_t, Access, S> : SumsOf8<S> {
  static constexpr int kTaps = 2, kUnitBytes = 2, kWeightRegisters = 1;

  VX_INLINE static void Plan(uint32_t* words, int32_t k, int32_t units, Gathered<S, 2> weights) {
    PlanPairs(words + k / kTaps * kLaneCount<S>, k / kTaps + 1 >= units, weights);
  }
  VX_INLINE static S Add(S sum, S unit, const uint32_t* weights) {
    return sum + ProductSums(As<U16<S>>(unit), LoadAligned<U16<S>>(weights));
  }
};

// Products are of signed lanes, so 32768 is subtracted from samples. The sum starts with 32768
// times the weights to make up for it, modulo 2^32 like the whole sum.
template <class Access, class S>
struct SetRule<uint16_t, Access, S> {
  using Sum = S;
  static constexpr int kTaps = 2, kUnitBytes = 4, kStartRegisters = 1, kWeightRegisters = 1;

  VX_INLINE static void Plan(uint32_t* words, int32_t k, int32_t units, Gathered<S, 2> weights) {
    PlanPairs(words + (1 + k / kTaps) * kLaneCount<S>, k / kTaps + 1 >= units, weights);
    const auto ones = Fill<U16<S>>(1);
    const S sum = As<S>(ProductSums(As<U16<S>>(weights.units[0]), ones)) +
                  As<S>(ProductSums(As<U16<S>>(weights.units[1]), ones));
    const S start = k == 0 ? Fill<S>(Filter<uint16_t>::kStart) : Load<S>(words);
    Store(words, start + (sum << 15));
  }
  VX_INLINE static Sum Start(const uint32_t* words) { return LoadAligned<Sum>(words); }
  VX_INLINE static Sum Add(Sum sum, S unit, const uint32_t* weights) {
    return sum + ProductSums(As<U16<S>>(unit) ^ 0x8000, LoadAligned<U16<S>>(weights));
  }
  VX_INLINE static U8<S> Finish(const Sum (&sums)[2]) {
    const auto value =
        NarrowUnsigned(As<I32<S>>(sums[0]) >> kWeightBits, As<I32<S>>(sums[1]) >> kWeightBits);
    return InMemoryOrder(As<U8<S>>(value > 32768 ? Fill<U16<S>>(32768) : value));
  }
};

template <class Access, class S>
struct SetRule<float, Access, S> {
  using Sum = F32<S>;
  static constexpr int kTaps = 1, kUnitBytes = 4, kStartRegisters = 0, kWeightRegisters = 1;

  VX_INLINE static void Plan(uint32_t* words, int32_t k, int32_t units, Gathered<S, 2> weights) {
    const S bits[] = {weights.units[0] << 16, weights.units[0], weights.units[1] << 16,
                      weights.units[1]};
    for (int32_t i = 0; i < 4 && k + i < units; ++i)
      Store(words + (k + i) * kLaneCount<S>, ToFloats(As<I32<S>>(bits[i]) >> 16));
  }
  VX_INLINE static Sum Start(const uint32_t*) { return Sum{}; }
  VX_INLINE static Sum Add(Sum sum, S unit, const uint32_t* weights) {
    return sum + As<Sum>(unit) * LoadAligned<Sum>(weights);
  }
  VX_INLINE static U8<S> Finish(const Sum (&sums)[1]) { return As<U8<S>>(sums[0] * kWeightScale); }
};

}  // namespace vantrix
