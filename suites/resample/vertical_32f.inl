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

  template <class Walk>
  VX_INLINE void StoreRow(float* destination, Walk walk) const {
    walk.ForEach([&](auto place) VX_INLINED {
      StoreAt<1>(destination, [=](int) VX_INLINED { return place; });
    });
  }
  // A long row by several registers, of which the last ones reach back.
  template <class V>
    requires(!kIsOneSample<V>)
  VX_INLINE void StoreRow(float* destination, Blocks<V> blocks) const {
    constexpr int kRegisters = 4;
    constexpr intptr_t kCount = kLaneCount<V>;
    const intptr_t last = blocks.end - kRegisters * kCount;
    if (last < 0) return StoreRow<Blocks<V>>(destination, blocks);
    const auto storeFrom = [&](intptr_t x) VX_INLINED {
      StoreAt<kRegisters>(destination, [=](int i) VX_INLINED { return Block<V>{x + i * kCount}; });
    };
    intptr_t x = 0;
    if (sizeof(V) > 16 && blocks.end >= kRegistersToAlign * kCount) {
      storeFrom(0);
      x = TargetOf<float>{destination, 0}.template BoundaryAfter<sizeof(V)>(0);
    }
    for (; x < last; x += kRegisters * kCount) storeFrom(x);
    storeFrom(last);
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
    ForEachOutputRow(source, destination, count, width, taps, sourceStride / 4 * 4,
                     destinationStride / 4 * 4, [=](uint8_t* row, TapRows rows) VX_INLINED {
                       const FilteredFloats<kTaps> filtered(rows);
                       WithBlocks<Form, float>(width, [&](auto walk) VX_INLINED {
                         filtered.StoreRow(reinterpret_cast<float*>(row), walk);
                       });
                     });
  });
}

}  // namespace vantrix
