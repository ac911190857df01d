// Bodies of vertical.h, for the units that instantiate them.
#pragma once

#include "suites/resample/output_rows.h"
#include "suites/resample/vertical.h"

namespace vantrix {
namespace {

// An output row, in registers of four samples and several at a time. kTaps is the number
// of taps, or 0 for any.
template <int kTaps>
struct FilteredFloats {
  TapRows rows;
  float weights[kTaps + 1];

  VX_INLINE explicit FilteredFloats(TapRows tapRows) : rows(tapRows) {
    Repeat<kTaps>([&](int k) VX_INLINED { weights[k] = rows.weights[k]; });
  }

  template <int kRegisters>
  VX_INLINE void StoreBlock(uint8_t* destination, intptr_t x) const {
    Floats4 sums[kRegisters] = {};
    const auto add = [&](int32_t k, float weight) VX_INLINED {
      const uint8_t* const row = rows.Row(k) + 4 * x;
      Repeat<kRegisters>([&](int i)
                             VX_INLINED { sums[i] += Load<Floats4>(row + 16 * i) * weight; });
    };
    Repeat<kTaps>([&](int k) VX_INLINED { add(k, weights[k]); });
    if constexpr (kTaps == 0)
      for (int32_t k = 0; k < rows.count; ++k) add(k, rows.weights[k]);
    Repeat<kRegisters>(
        [&](int i) VX_INLINED { Store(destination + 4 * x + 16 * i, sums[i] * kWeightScale); });
  }
  VX_INLINE void StoreOne(uint8_t* destination, intptr_t x) const {
    const auto read = [&](int32_t k) { return Load<float>(rows.Row(k) + 4 * x); };
    Store(destination + 4 * x,
          FilterOne<float>(rows.weights, kTaps > 0 ? kTaps : rows.count, read));
  }

  // In such blocks, of which the last reaches back.
  template <int kRegisters>
  VX_INLINE void StoreBlocks(uint8_t* destination, intptr_t width) const {
    constexpr intptr_t kColumns = 4 * kRegisters;
    for (intptr_t x = 0; x < width; x += kColumns)
      StoreBlock<kRegisters>(destination, x + kColumns <= width ? x : width - kColumns);
  }
  template <class Form>
  VX_INLINE void StoreRow(uint8_t* destination, intptr_t width) const {
    if (Form::kBytes > 1 && width >= 16) return StoreBlocks<4>(destination, width);
    if (Form::kBytes > 1 && width >= 4) return StoreBlocks<1>(destination, width);
    for (intptr_t x = 0; x < width; ++x) StoreOne(destination, x);
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
                     destinationStride / 4 * 4, [&](uint8_t* row, TapRows rows) VX_INLINED {
                       FilteredFloats<kTaps>(rows).template StoreRow<Form>(row, width);
                     });
  });
}

}  // namespace vantrix
