// The filter rule on sets: a register of output columns, a unit of each at a time.
//
//   Sum                  a register of sums
//   kTaps                taps in a unit
//   kUnitBytes           bytes of the row that it takes
//   kStartRegisters      registers of the plan before those of the first unit
//   kWeightRegisters     registers of the plan that a unit meets
//   Plan(words, k, units, weights)
//                        writes what weights k .. k + 3 of the columns make of these, k
//                        being a multiple of 4; weights.units[0] are the first two of each
//   Start(words), Add(sum, unit, weights)
//                        the sums
//   Finish(sums)         a register of output samples, in memory's order, from as many sets
//                        that follow one another as it takes
//
// S is the register of the sets, as unsigned lanes.
#pragma once

#include "suites/resample/column_plan.h"

namespace vantrix {

template <class Sample, class Access, class S>
struct SetRule;

// Two taps a unit as 16-bit lanes, and one register of weights for it.
template <class S>
VX_INLINE void PlanPairs(uint32_t* unit, bool isLast, Gathered<S, 2> weights) {
  Store(unit, weights.units[0]);
  if (!isLast) Store(unit + kLaneCount<S>, weights.units[1]);
}

// Sums of 8-bit samples, and how they end.
template <class S>
struct SumsOf8 {
  using Sum = S;
  static constexpr int kStartRegisters = 0;

  VX_INLINE static Sum Start(const uint32_t*) { return Fill<Sum>(Filter<uint8_t>::kStart); }
  VX_INLINE static Bytes<S> Finish(const Sum (&sums)[4]) {
    return InMemoryOrder<4>(FinishBytes(sums[0], sums[1], sums[2], sums[3]));
  }
};

// A gathered unit is four bytes, which become 16-bit lanes by parity: taps 0 and 2, and
// taps 1 and 3.
template <class S>
struct SetRule<uint8_t, ByGather, S> : SumsOf8<S> {
  static constexpr int kTaps = 4, kUnitBytes = 4, kWeightRegisters = 2;

  VX_INLINE static void Plan(uint32_t* words, int32_t k, int32_t, Gathered<S, 2> weights) {
    uint32_t* const unit = words + k / kTaps * kWeightRegisters * kLaneCount<S>;
    Store(unit, (weights.units[0] & 65535) | weights.units[1] << 16);
    Store(unit + kLaneCount<S>, weights.units[0] >> 16 | (weights.units[1] & 0xFFFF0000));
  }
  VX_INLINE static S Add(S sum, S unit, const uint32_t* weights) {
    const auto samples = As<Words<S>>(unit);
    return sum + ProductSums(samples & 255, LoadAligned<Words<S>>(weights)) +
           ProductSums(samples >> 8, LoadAligned<Words<S>>(weights + kLaneCount<S>));
  }
};

// From a window two bytes come as two 16-bit lanes at once.
template <class Access, class S>
struct SetRule<uint8_t, Access, S> : SumsOf8<S> {
  static constexpr int kTaps = 2, kUnitBytes = 2, kWeightRegisters = 1;

  VX_INLINE static void Plan(uint32_t* words, int32_t k, int32_t units, Gathered<S, 2> weights) {
    PlanPairs(words + k / kTaps * kLaneCount<S>, k / kTaps + 1 >= units, weights);
  }
  VX_INLINE static S Add(S sum, S unit, const uint32_t* weights) {
    return sum + ProductSums(As<Words<S>>(unit), LoadAligned<Words<S>>(weights));
  }
};

// Products are of signed lanes, so samples are taken less 32768, and the sum starts with
// 32768 times the weights, modulo 2^32 as all of it.
template <class Access, class S>
struct SetRule<uint16_t, Access, S> {
  using Sum = S;
  static constexpr int kTaps = 2, kUnitBytes = 4, kStartRegisters = 1, kWeightRegisters = 1;

  VX_INLINE static void Plan(uint32_t* words, int32_t k, int32_t units, Gathered<S, 2> weights) {
    PlanPairs(words + (1 + k / kTaps) * kLaneCount<S>, k / kTaps + 1 >= units, weights);
    const auto ones = Fill<Words<S>>(1);
    const S sum = As<S>(ProductSums(As<Words<S>>(weights.units[0]), ones)) +
                  As<S>(ProductSums(As<Words<S>>(weights.units[1]), ones));
    const S start = k == 0 ? Fill<S>(Filter<uint16_t>::kStart) : Load<S>(words);
    Store(words, start + (sum << 15));
  }
  VX_INLINE static Sum Start(const uint32_t* words) { return LoadAligned<Sum>(words); }
  VX_INLINE static Sum Add(Sum sum, S unit, const uint32_t* weights) {
    return sum + ProductSums(As<Words<S>>(unit) ^ 0x8000, LoadAligned<Words<S>>(weights));
  }
  VX_INLINE static Bytes<S> Finish(const Sum (&sums)[2]) {
    const auto value =
        NarrowUnsigned(As<Ints<S>>(sums[0]) >> kWeightBits, As<Ints<S>>(sums[1]) >> kWeightBits);
    return InMemoryOrder(As<Bytes<S>>(value > 32768 ? Fill<Words<S>>(32768) : value));
  }
};

template <class Access, class S>
struct SetRule<float, Access, S> {
  using Sum = Floats<S>;
  static constexpr int kTaps = 1, kUnitBytes = 4, kStartRegisters = 0, kWeightRegisters = 1;

  VX_INLINE static void Plan(uint32_t* words, int32_t k, int32_t units, Gathered<S, 2> weights) {
    const S bits[] = {weights.units[0] << 16, weights.units[0], weights.units[1] << 16,
                      weights.units[1]};
    for (int32_t i = 0; i < 4 && k + i < units; ++i)
      Store(words + (k + i) * kLaneCount<S>, ToFloats(As<Ints<S>>(bits[i]) >> 16));
  }
  VX_INLINE static Sum Start(const uint32_t*) { return Sum{}; }
  VX_INLINE static Sum Add(Sum sum, S unit, const uint32_t* weights) {
    return sum + As<Sum>(unit) * LoadAligned<Sum>(weights);
  }
  VX_INLINE static Bytes<S> Finish(const Sum (&sums)[1]) {
    return As<Bytes<S>>(sums[0] * kWeightScale);
  }
};

}  // namespace vantrix
