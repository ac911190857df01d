// The vertical filter of 8-bit samples.
#pragma once

#include "suites/resample/computed_row.h"
#include "suites/resample/output_rows.h"
#include "suites/resample/vertical.h"

namespace vantrix {
namespace {

// The sums of a register V of columns. The samples of two rows at a time are interleaved and
// widened to pairs of 16-bit lanes, which one instruction multiplies and adds.
template <class V>
struct PairSums {
  U32<V> a, b, c, d;

  VX_INLINE PairSums() { a = b = c = d = Fill<U32<V>>(Filter<uint8_t>::kStart); }
  VX_INLINE void Add(V even, V odd, uint32_t pair) {
    const auto weights = As<U16<V>>(Fill<U32<V>>(pair));
    const V low = InterleaveLow(even, odd), high = InterleaveHigh(even, odd);
    a += ProductSums(WidenLow(low), weights);
    b += ProductSums(WidenHigh(low), weights);
    c += ProductSums(WidenLow(high), weights);
    d += ProductSums(WidenHigh(high), weights);
  }
  VX_INLINE V Finish() const { return FinishBytes(a, b, c, d); }
};

// An output row. kTaps is the number of taps, or 0 for any.
template <int kTaps>
struct FilteredRow {
  TapRows rows;
  uint32_t pairs[kTaps / 2 + 1];

  VX_INLINE explicit FilteredRow(TapRows tapRows) : rows(tapRows) {
    Repeat<kTaps / 2>([&](int i) VX_INLINED { pairs[i] = PairAt(2 * i); });
  }
  VX_INLINE uint32_t PairAt(int32_t k) const { return Load<uint32_t>(rows.weights + k); }

  template <class V, class Read>
  VX_INLINE V Result(Read read) const {
    if constexpr (kIsOneSample<V>) {
      return V{FilterOne<uint8_t>(rows.weights, kTaps > 0 ? kTaps : rows.count,
                                  [&](int32_t k) { return read(rows.Row(k))[0]; })};
    } else {
      PairSums<V> sums;
      const auto add = [&](int32_t k, uint32_t pair)
                           VX_INLINED { sums.Add(read(rows.Row(k)), read(rows.Row(k + 1)), pair); };
      Repeat<kTaps / 2>([&](int i) VX_INLINED { add(2 * i, pairs[i]); });
      if constexpr (kTaps == 0) {
        int32_t k = 0;
        for (; k + 1 < rows.count; k += 2) add(k, PairAt(k));
        if (k < rows.count)
          sums.Add(read(rows.Row(k)), V{}, static_cast<uint16_t>(rows.weights[k]));
      }
      return sums.Finish();
    }
  }
};

}  // namespace

template <class Form>
void FilterResampleVertical8(const uint8_t* source, uint8_t* destination, int32_t count,
                             int32_t width, const int32_t* offsets, const uint8_t* phases,
                             int32_t sourceStride, int32_t destinationStride, int32_t tapCount,
                             const int16_t* weights) {
  const Taps taps{offsets, phases, weights, static_cast<int16_t>(tapCount)};
  if (Form::kBytes > 16 && AreTakenInPieces<uint8_t>(count, width, taps))
    return FilterFarBy<uint8_t, FilterResampleVertical8<Form>>(
        source, destination, count, width, offsets, phases, sourceStride, destinationStride,
        tapCount, weights);
  WithTapCount(taps.count, [&]<int kTaps>(std::integral_constant<int, kTaps>) VX_INLINED {
    WithBlocks<Form, uint8_t>(width, [=](auto walk) VX_INLINED {
      ForEachOutputRow(source, destination, count, width, taps, sourceStride, destinationStride,
                       [=](uint8_t* row, TapRows rows) VX_INLINED {
                         WriteRow(walk, row,
                                  Computed<FilteredRow<kTaps>>{FilteredRow<kTaps>{rows}});
                       });
    });
  });
}

}  // namespace vantrix
