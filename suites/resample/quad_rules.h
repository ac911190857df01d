// The filter rule on quads: four output columns in a register, a unit of each at a time.
//
//   kTaps                taps in a unit
//   kUnitBytes           bytes of the row that it takes
//   kStartWords          words of the plan before those of the first unit
//   kWeightWords         words of the plan that a unit meets
//   Plan(words, k, units, weights)
//                        writes what weights k .. k + 3 of four columns make of these, k
//                        being a multiple of 4; weights.units[0] are the first two of each
//   Start(words), Add(sum, unit, weights)
//                        the sums
//   Finish(sum ...)      a register of output samples from as many quads as it takes
#pragma once

#include "suites/resample/column_plan.h"

namespace vantrix {

template <class Sample, class Access>
struct QuadRule;

// Sums of 8-bit samples, and how they end.
struct SumsOf8 {
  using Sum = Sums4;
  static constexpr int kStartWords = 0;

  VX_INLINE static Sum Start(const uint32_t*) { return Fill<Sum>(Filter<uint8_t>::kStart); }
  VX_INLINE static Bytes16 Finish(Sum a, Sum b, Sum c, Sum d) { return FinishBytes(a, b, c, d); }
};

// A gathered unit is four bytes, which become 16-bit lanes by parity: taps 0 and 2, and
// taps 1 and 3.
template <>
struct QuadRule<uint8_t, ByGather> : SumsOf8 {
  static constexpr int kTaps = 4, kUnitBytes = 4, kWeightWords = 8;

  VX_INLINE static void Plan(uint32_t* words, int32_t k, int32_t, Gathered<2> weights) {
    uint32_t* const unit = words + k / kTaps * kWeightWords;
    Store(unit, (weights.units[0] & 65535) | weights.units[1] << 16);
    Store(unit + 4, weights.units[0] >> 16 | (weights.units[1] & 0xFFFF0000));
  }
  VX_INLINE static Sum Add(Sum sum, Sums4 unit, const uint32_t* weights) {
    const auto samples = As<Words8>(unit);
    return sum + ProductSums(samples & 255, LoadAligned<Words8>(weights)) +
           ProductSums(samples >> 8, LoadAligned<Words8>(weights + 4));
  }
};

// From a window two bytes come as two 16-bit lanes at once.
template <>
struct QuadRule<uint8_t, ByWindow> : SumsOf8 {
  static constexpr int kTaps = 2, kUnitBytes = 2, kWeightWords = 4;

  VX_INLINE static void Plan(uint32_t* words, int32_t k, int32_t units, Gathered<2> weights) {
    uint32_t* const unit = words + k / kTaps * kWeightWords;
    Store(unit, weights.units[0]);
    if (k / kTaps + 1 < units) Store(unit + kWeightWords, weights.units[1]);
  }
  VX_INLINE static Sum Add(Sum sum, Sums4 unit, const uint32_t* weights) {
    return sum + ProductSums(As<Words8>(unit), LoadAligned<Words8>(weights));
  }
};

// Products are of signed lanes, so samples are taken less 32768, and the sum starts with
// 32768 times the weights, modulo 2^32 as all of it.
template <class Access>
struct QuadRule<uint16_t, Access> {
  using Sum = Sums4;
  static constexpr int kTaps = 2, kUnitBytes = 4, kStartWords = 4, kWeightWords = 4;

  VX_INLINE static void Plan(uint32_t* words, int32_t k, int32_t units, Gathered<2> weights) {
    uint32_t* const unit = words + kStartWords + k / kTaps * kWeightWords;
    Store(unit, weights.units[0]);
    if (k / kTaps + 1 < units) Store(unit + kWeightWords, weights.units[1]);
    const Words8 ones = Fill<Words8>(1);
    const Sums4 sum = ProductSums(As<Words8>(weights.units[0]), ones) +
                      ProductSums(As<Words8>(weights.units[1]), ones);
    const Sums4 start = k == 0 ? Fill<Sums4>(Filter<uint16_t>::kStart) : Load<Sums4>(words);
    Store(words, start + (sum << 15));
  }
  VX_INLINE static Sum Start(const uint32_t* words) { return LoadAligned<Sum>(words); }
  VX_INLINE static Sum Add(Sum sum, Sums4 unit, const uint32_t* weights) {
    return sum + ProductSums(As<Words8>(unit) ^ 0x8000, LoadAligned<Words8>(weights));
  }
  // Clamped to 0..65535 about 32768, where 16-bit lanes are signed, then to 32768.
  VX_INLINE static Bytes16 Finish(Sum a, Sum b) {
    const Words8 value =
        Narrow((As<Ints4>(a) >> kWeightBits) - 32768, (As<Ints4>(b) >> kWeightBits) - 32768);
    return As<Bytes16>(SmallerSigned(value, Words8{}) ^ 0x8000);
  }
};

template <class Access>
struct QuadRule<float, Access> {
  using Sum = Floats4;
  static constexpr int kTaps = 1, kUnitBytes = 4, kStartWords = 0, kWeightWords = 4;

  VX_INLINE static void Plan(uint32_t* words, int32_t k, int32_t units, Gathered<2> weights) {
    const Sums4 bits[] = {weights.units[0] << 16, weights.units[0], weights.units[1] << 16,
                          weights.units[1]};
    for (int32_t i = 0; i < 4 && k + i < units; ++i)
      Store(words + (k + i) * kWeightWords,
            __builtin_convertvector(As<Ints4>(bits[i]) >> 16, Floats4));
  }
  VX_INLINE static Sum Start(const uint32_t*) { return Sum{}; }
  VX_INLINE static Sum Add(Sum sum, Sums4 unit, const uint32_t* weights) {
    return sum + As<Floats4>(unit) * LoadAligned<Floats4>(weights);
  }
  VX_INLINE static Bytes16 Finish(Sum sum) { return As<Bytes16>(sum * kWeightScale); }
};

}  // namespace vantrix
