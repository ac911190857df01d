// The windows of vertical convolution: how the output rows of one block are summed.
#pragma once

#include "common/blocks.h"
#include "common/look_up.h"
#include "suites/filter/signatures.h"

namespace vantrix {
namespace {

constexpr uint16_t kRoundingHalf = 128;
// Output rows that are computed together: each source row
// is loaded and widened once for all of them.
constexpr int kRowsAtOnce = 4;
// The weights of larger windows are not prepared, but spread over lanes when they are needed.
constexpr intptr_t kPreparedTaps = 64;

// Passed by value everywhere, as the weights are: what is
// passed by reference is loaded again in each block.
struct WindowPlanes {
  const uint8_t* top;  // the first row of the first output row's window
  intptr_t sourceStride;
  uint8_t* destination;
  intptr_t destinationStride;
  uint32_t rows;
  intptr_t columns;

  // The planes after the first `done` rows.
  VX_LANE WindowPlanes After(uint32_t done) const {
    return {top + intptr_t{done} * sourceStride,
            sourceStride,
            destination + intptr_t{done} * destinationStride,
            destinationStride,
            rows - done,
            columns};
  }
};

// The sums of kRows output rows in one block V, in 16-bit lanes that wrap.
template <class V, int kRows>
struct WindowSums {
  U16<V> low[kRows], high[kRows];

  VX_INLINE explicit WindowSums(uint16_t start) {
#pragma GCC unroll 4
    for (int j = 0; j < kRows; ++j) low[j] = high[j] = Fill<U16<V>>(start);
  }
  template <class Place>
  VX_INLINE void StoreTo(WindowPlanes planes, Place place) const {
#pragma GCC unroll 4
    for (int j = 0; j < kRows; ++j)
      place.StoreTo(planes.destination + j * planes.destinationStride,
                    Narrow(low[j] >> 8, high[j] >> 8));
  }
};

// Single weights: prepared in the lanes of a group, or spread when they are needed.
struct PreparedWeights {
  const Group<uint16_t>* groups;
  template <class W>
  VX_LANE W In(intptr_t k) const {
    return InEveryGroup<W>(groups[k]);
  }
};
struct KernelWeights {
  const uint32_t* weights;
  template <class W>
  VX_LANE W In(intptr_t k) const {
    return Fill<W>(static_cast<uint16_t>(weights[k]));
  }
};

// The number of taps: kKnown, or, if that is 0, known only at run time.
template <int kKnown>
struct TapCount {
  intptr_t taps;
  VX_LANE intptr_t Count() const { return kKnown == 0 ? taps : kKnown; }
};

// Takes source rows one at a time: row i of the window has
// weight i - j in output row j. Right for any weights.
template <class Count, class WeightsInLanes>
struct RowByRow {
  Count taps;
  WeightsInLanes weights;

  template <int kRows, class Place>
  VX_INLINE void Convolve(WindowPlanes planes, Place place) const {
    using V = typename Place::Register;
    const intptr_t count = taps.Count();
    WindowSums<V, kRows> sums(kRoundingHalf);
    const uint8_t* row = planes.top;
    const auto take = [&](intptr_t i, intptr_t first, intptr_t last) VX_INLINED {
      const V samples = place.LoadFrom(row);
      const U16<V> low = WidenLow(samples), high = WidenHigh(samples);
#pragma GCC unroll 4
      for (int j = 0; j < kRows; ++j) {
        if (j < first || j > last) continue;
        const auto weight = weights.template In<U16<V>>(i - j);
        sums.low[j] += low * weight;
        sums.high[j] += high * weight;
      }
      row += planes.sourceStride;
    };
    // First the rows that are not yet in all windows, then
    // those in all, then those only in the last.
    intptr_t i = 0;
#pragma GCC unroll 3
    for (; i < kRows - 1; ++i) take(i, i >= count ? i - count + 1 : 0, i);
    for (; i < count; ++i) take(i, 0, kRows - 1);
#pragma GCC unroll 3
    for (; i < count + kRows - 1; ++i) take(i, i - count + 1, kRows - 1);
    sums.StoreTo(planes, place);
  }
};

#if defined(__SSSE3__)

// Takes source rows two at a time, their samples interleaved: one instruction
// multiplies two samples by two weights and adds the products. Samples minus 128
// are signed; the sums start with what they lose by that. Right if no weight is
// above 255 and no two neighbours add up to more than 256, as in a mean.
//
// In a pair of source rows the even ones of the four output rows have weights 2 q and 2 q + 1, the
// odd ones weights 2 q - 1 and 2 q.
struct PairedWeights {
  uint16_t start;
  Group<uint16_t> even[kPreparedTaps / 2], odd[kPreparedTaps / 2];
};

template <class Count>
struct PairByPair {
  Count taps;
  const PairedWeights& weights;

  template <int kRows, class Place>
  VX_INLINE void Convolve(WindowPlanes planes, Place place) const {
    using V = typename Place::Register;
    const intptr_t pairs = (taps.Count() + 1) / 2;
    WindowSums<V, kRows> sums(weights.start);
    const uint8_t* row = planes.top;
    const auto take = [&](intptr_t p, intptr_t firstPair, intptr_t lastPair) VX_INLINED {
      const V first = place.LoadFrom(row) ^ 128;
      const V second = place.LoadFrom(row + planes.sourceStride) ^ 128;
      const V low = InterleaveLow(first, second), high = InterleaveHigh(first, second);
#pragma GCC unroll 4
      for (int j = 0; j < kRows; ++j) {
        const intptr_t q = p - j / 2;
        if (j / 2 < firstPair || j / 2 > lastPair) continue;
        const auto& groups = j % 2 == 0 ? weights.even : weights.odd;
        const auto pair = As<V>(InEveryGroup<U16<V>>(groups[q]));
        sums.low[j] += MixedProductSums(pair, low);
        sums.high[j] += MixedProductSums(pair, high);
      }
      row += 2 * planes.sourceStride;
    };
    constexpr intptr_t kLast = kRows / 2 - 1;
    take(0, 0, 0);
    for (intptr_t p = 1; p < pairs; ++p) take(p, 0, kLast);
    take(pairs, kLast, kLast);
    sums.StoreTo(planes, place);
  }
};

// Prepares the weights for PairByPair. Returns false if they do not suit it.
VX_INLINE bool PreparePairs(const uint32_t* weights, intptr_t taps, PairedWeights& pairs) {
  if (taps < 3 || taps > kPreparedTaps) return false;
  const auto weight = [=](intptr_t k) VX_INLINED -> uint32_t {
    return k < 0 || k >= taps ? 0 : weights[k] & 0xFFFF;
  };
  const auto pair = [=](intptr_t k) VX_INLINED {
    return Fill<Group<uint16_t>>(static_cast<uint16_t>(weight(k) | weight(k + 1) << 8));
  };
  uint32_t sum = 0;
  for (intptr_t k = 0; k < taps; ++k) {
    if (weight(k) > 255 || weight(k) + weight(k + 1) > 256) return false;
    sum += weight(k);
  }
  for (intptr_t q = 0; q < (taps + 1) / 2; ++q) {
    pairs.even[q] = pair(2 * q);
    pairs.odd[q] = pair(2 * q - 1);
  }
  pairs.start = static_cast<uint16_t>(kRoundingHalf + 128 * sum);
  return true;
}

#endif

}  // namespace
}  // namespace vantrix
