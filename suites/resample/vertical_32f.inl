// The vertical filter of floats.
#pragma once

#include "common/rows.h"
#include "suites/resample/output_rows.h"
#include "suites/resample/vertical.h"

namespace vantrix {
namespace {

// A long row is taken this many registers at a time, which share the work on a tap's weight. They
// are aligned like those of ApplyToRow. The registers of the tail are taken one at a time.
constexpr int kAtOnce = 4;
template <class V>
struct SeveralAtOnce {
  Blocks<V> blocks;
};

// An output row, several registers of samples at a time. kTaps is the number of taps, or 0 for any.
template <int kTaps>
struct FilteredFloats {
  TapRows rows;
  float weights[kTaps + 1];

  VX_INLINE explicit FilteredFloats(TapRows tapRows) : rows(tapRows) {
    Repeat<kTaps>([&](int k) VX_INLINED { weights[k] = rows.weights[k]; });
  }

  // Computes kRegisters registers of samples; at(i) is the place of register i.
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
  template <class V>
  VX_INLINE void StoreRow(float* destination, SeveralAtOnce<V> several) const {
    constexpr intptr_t kCount = kLaneCount<V>;
    const Blocks<V> blocks = several.blocks;
    intptr_t x = 0;
    if (sizeof(V) > 16 && blocks.end >= kRegistersToAlign * kCount) {
      StorePlace(destination, blocks.First());
      x = TargetOf<float>{destination, 0}.template BoundaryAfter<sizeof(V)>(0);
    }
    for (; x + kAtOnce * kCount <= blocks.end; x += kAtOnce * kCount)
      StoreAt<kAtOnce>(destination, [=](int i) VX_INLINED { return Block<V>{x + i * kCount}; });
    for (; x < blocks.end; x += kCount)
      StorePlace(destination, x + kCount <= blocks.end ? Block<V>{x} : blocks.Last());
  }
};

// Calls use(SeveralAtOnce) with the widest register that fits kAtOnce times into the row, of kBytes
// bytes, half of that, and so on; wide forms go down to 32 bytes. Returns whether there is one.
template <int kBytes, class Use>
VX_INLINE bool WithSeveralAtOnce(int32_t width, Use use) {
  using V = Lanes<float, kBytes / int{sizeof(float)}>;
  if (width >= kAtOnce * kLaneCount<V>) {
    use(SeveralAtOnce<V>{{width}});
    return true;
  }
  if constexpr (kBytes > 32) return WithSeveralAtOnce<kBytes / 2>(width, use);
  return false;
}

}  // namespace

template <class Form>
void FilterResampleVertical32F(const float* source, float* destination, int32_t count,
                               int32_t width, const int32_t* offsets, const uint8_t* phases,
                               int32_t sourceStride, int32_t destinationStride, int32_t tapCount,
                               const int16_t* weights) {
  const Taps taps{offsets, phases, weights, static_cast<int16_t>(tapCount)};
  if (Form::kBytes > 16 && AreTakenInPieces<float>(count, width, taps))
    return FilterFarBy<float, FilterResampleVertical32F<Form>>(
        source, destination, count, width, offsets, phases, sourceStride, destinationStride,
        tapCount, weights);
  const intptr_t from = sourceStride / 4 * 4, to = destinationStride / 4 * 4;
  WithTapCount(taps.count, [&]<int kTaps>(std::integral_constant<int, kTaps>) VX_INLINED {
    const auto filter = [=](auto walk) VX_INLINED {
      ForEachOutputRow(source, destination, count, width, taps, from, to,
                       [=](uint8_t* row, TapRows rows) VX_INLINED {
                         FilteredFloats<kTaps>(rows).StoreRow(reinterpret_cast<float*>(row), walk);
                       });
    };
    if constexpr (Form::kBytes > 1)
      if (WithSeveralAtOnce<Form::kBytes>(width, filter)) return;
    WithBlocks<Form, float>(width, filter);
  });
}

}  // namespace vantrix
