// What the filters share: where the taps of an output item
// are, and how one output sample is computed from them.
#pragma once

#include "common/lane_ops.h"
#include "common/unroll.h"

namespace vantrix {

struct Taps {
  const int32_t* offsets;
  const uint8_t* phases;
  const int16_t* weights;
  int32_t count;

  // The source item of the first tap. With 0 or 1 taps it is the item after the one in the list.
  VX_INLINE intptr_t First(int32_t item) const { return intptr_t{offsets[item]} + 1 - count / 2; }
  // The index of an item's first weight.
  VX_INLINE int32_t Base(int32_t item) const { return phases[item] * count; }
};

// Weights have 14 fractional bits.
inline constexpr int kWeightBits = 14;
inline constexpr float kWeightScale = 1.0f / (1 << kWeightBits);

// One output sample is Finish(sum): kStart plus every tap, in the order of the taps.
//
// A sum of integers wraps at 32 bits. Its signed value is shifted, which rounds halves up thanks to
// kStart, and clamped. With floats each product and each sum is rounded once.
template <class Sample>
struct Filter {
  using Sum = uint32_t;
  static constexpr Sum kStart = 1 << (kWeightBits - 1);
  static constexpr int32_t kWhite = sizeof(Sample) == 1 ? 255 : 32768;

  VX_INLINE static Sum Add(Sum sum, Sample sample, int16_t weight) {
    return sum + uint32_t{sample} * static_cast<uint32_t>(int32_t{weight});
  }
  VX_INLINE static Sample Finish(Sum sum) {
    const int32_t value = static_cast<int32_t>(sum) >> kWeightBits;
    return static_cast<Sample>(value < 0 ? 0 : value > kWhite ? kWhite : value);
  }
};
template <>
struct Filter<float> {
  using Sum = float;
  static constexpr Sum kStart = 0;

  VX_INLINE static Sum Add(Sum sum, float sample, int16_t weight) { return sum + sample * weight; }
  VX_INLINE static float Finish(Sum sum) { return sum * kWeightScale; }
};

// Finish for four registers of sums of 8-bit samples: Narrow clamps.
template <class V>
VX_INLINE U8<V> FinishBytes(V a, V b, V c, V d) {
  const auto narrow = [](V low, V high) VX_INLINED {
    return Narrow(As<I32<V>>(low) >> kWeightBits, As<I32<V>>(high) >> kWeightBits);
  };
  return Narrow(narrow(a, b), narrow(c, d));
}

// Computes one output sample; read(k) is the sample of tap k.
template <class Sample, class Read>
VX_INLINE Sample FilterOne(const int16_t* weights, int32_t count, Read read) {
  using Rule = Filter<Sample>;
  typename Rule::Sum sum = Rule::kStart;
  for (int32_t k = 0; k < count; ++k) sum = Rule::Add(sum, read(k), weights[k]);
  return Rule::Finish(sum);
}

// Calls work with the tap count, known at compile time for the counts whose loops are unrolled.
template <class Work>
VX_INLINE void WithTapCount(int32_t count, Work work) {
  WithConstant<2, 4, 6>(count, work);
}

}  // namespace vantrix
