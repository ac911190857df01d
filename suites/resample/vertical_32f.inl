// Bodies of vertical.h, for the units that instantiate them.
#pragma once

#include "common/rows.h"
#include "suites/resample/output_rows.h"
#include "suites/resample/vertical.h"

namespace vantrix {
namespace {

// An output row, in registers of samples and several of them at a time. kTaps is the number
// of taps, or 0 for any.
template <int kTaps>
struct FilteredFloats {
  TapRows rows;
  float weights[kTaps + 1];

  VX_INLINE explicit FilteredFloats(TapRows tapRows) : rows(tapRows) {
    Repeat<kTaps>([&](int k) VX_INLINED { weights[k] = rows.weights[k]; });
  }

  // kRegisters registers of samples, of which at(i) is the place of number i.
  template <int kRegisters, class At>
  VX_INLINE void StoreAt(float* destination, At at) const {
    using V = typename decltype(at(0))::Register;
    V sums[kRegisters] = {};
    const auto add = [&](int32_t k, float weight) VX_INLINED {
      const auto row = reinterpret_cast<const float*>(rows.Row(k));
      Repeat<kRegisters>([&](int i) VX_INLINED { sums[i] += at(i).LoadFrom(row) * weight; });
    };
    Repeat<kTaps>([&](int k) VX_INLINED { add(k, weights[k]); });
    if constexpr (kTaps == 0)
      for (int32_t k = 0; k < rows.count; ++k) add(k, rows.weights[k]);
    Repeat<kRegisters>([&](int i)
                           VX_INLINED { at(i).StoreTo(destination, sums[i] * kWeightScale); });
  }

  template <class Place>
  VX_INLINE void StorePlace(float* destination, Place place) const {
    StoreAt<1>(destination, [=](int) VX_INLINED { return place; });
  }

  template <class Walk>
  VX_INLINE void StoreRow(float* destination, Walk walk) const {
    walk.ForEach([&](auto place) VX_INLINED { StorePlace(destination, place); });
  }
  // Four registers at a time share what a tap's weight takes. They are aligned as those of
  // ApplyToRow; of the rest of the row each is taken by itself.
  template <class V>
  VX_INLINE void StoreRow(float* destination, Blocks<V> blocks) const {
    constexpr intptr_t kCount = kLaneCount<V>;
    constexpr int kRegisters = 4;
    intptr_t x = 0;
    if (sizeof(V) > 16 && blocks.count >= kRegistersToAlign * kCount) {
      StorePlace(destination, blocks.First());
      x = TargetOf<float>{destination, 0}.template ToBoundary<sizeof(V)>();
    }
    for (; x + kRegisters * kCount <= blocks.count; x += kRegisters * kCount)
      StoreAt<kRegisters>(destination, [=](int i) VX_INLINED { return Block<V>{x + i * kCount}; });
    for (; x < blocks.count; x += kCount)
      StorePlace(destination, x + kCount <= blocks.count ? Block<V>{x} : blocks.Last());
  }
};

}  // namespace

template <class Form>
void FilterResampleVertical32F(const float* source, float* destination, int32_t count,
                               int32_t width, const int32_t* offsets, const uint8_t* phases,
                               int32_t sourceStride, int32_t destinationStride, int32_t tapCount,
                               const int16_t* weights) {
  const Taps taps{offsets, phases, weights, static_cast<int16_t>(tapCount)};
  WithTapCount(taps.count, [&]<int kTaps>(std::integral_constant<int, kTaps>) VX_INLINED {
    WithBlocks<Form, float>(width, [=](auto walk) VX_INLINED {
      ForEachOutputRow(source, destination, count, width, taps, sourceStride / 4 * 4,
                       destinationStride / 4 * 4, [=](uint8_t* row, TapRows rows) VX_INLINED {
                         FilteredFloats<kTaps>(rows).StoreRow(reinterpret_cast<float*>(row), walk);
                       });
    });
  });
}

}  // namespace vantrix
