// Bodies of convolve.h, for the units that instantiate them.
#pragma once

#include "common/look_up.h"
#include "common/overlap.h"
#include "common/unroll.h"
#include "suites/filter/convolve.h"

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

// Computes kRows output rows at a time, while that many are left, in the blocks of `walk`.
template <int kRows, class Walk, class Window>
VX_INLINE void ConvolveBlocks(WindowPlanes planes, Walk walk, Window window) {
  for (; planes.rows >= kRows; planes = planes.After(kRows))
    walk.ForEach([=](auto place) VX_INLINED { window.template Convolve<kRows>(planes, place); });
}
// A single column is taken as both ends of its row.
template <int kRows, class Window>
VX_INLINE void ConvolveBlocks(WindowPlanes planes, Singly<uint8_t> column, Window window) {
  ConvolveBlocks<kRows>(planes, OnePlace<Ends<Group<uint8_t>, 1>>{{column.count}}, window);
}
template <class Form, int kRows, class Window>
VX_INLINE void ConvolveRows(WindowPlanes planes, Window window) {
  WithTaperedBlocks<Form, uint8_t>(
      planes.columns, [=](auto walk) VX_INLINED { ConvolveBlocks<kRows>(planes, walk, window); });
}

// Calls work with the TapCount, known at compile time for common counts.
template <class Work>
VX_INLINE void WithTaps(intptr_t taps, Work work) {
  WithConstant<3, 7>(static_cast<int32_t>(taps),
                     [=](auto known) VX_INLINED { work(TapCount<known>{taps}); });
}

template <class Form>
VX_INLINE void ConvolveByRows(WindowPlanes planes, intptr_t taps, const uint32_t* weights) {
  const auto convolve = [=](auto count, auto inLanes) VX_INLINED {
    ConvolveRows<Form, kRowsAtOnce>(planes,
                                    RowByRow<decltype(count), decltype(inLanes)>{count, inLanes});
    ConvolveRows<Form, 1>(planes.After(planes.rows / kRowsAtOnce * kRowsAtOnce),
                          RowByRow<TapCount<0>, decltype(inLanes)>{{taps}, inLanes});
  };
  const KernelWeights kernel{weights};
  if (taps > kPreparedTaps) return convolve(TapCount<0>{taps}, kernel);
  Group<uint16_t> groups[kPreparedTaps];
  for (intptr_t k = 0; k < taps; ++k) groups[k] = kernel.In<Group<uint16_t>>(k);
  const PreparedWeights prepared{groups};
  // If the unit takes rows in pairs, most rows are taken there, and known counts gain too little
  // here for the code that they need.
  if constexpr (kShuffles)
    convolve(TapCount<0>{taps}, prepared);
  else
    WithTaps(taps, [=](auto count) VX_INLINED { convolve(count, prepared); });
}

VX_INLINE void ConvolveSingly(WindowPlanes planes, intptr_t taps, const uint32_t* weights) {
  for (; planes.rows > 0; planes = planes.After(1)) {
    for (intptr_t x = 0; x < planes.columns; ++x) {
      uint32_t sum = kRoundingHalf;
      for (intptr_t k = 0; k < taps; ++k)
        sum += planes.top[k * planes.sourceStride + x] * (weights[k] & 0xFFFF);
      planes.destination[x] = static_cast<uint8_t>(sum >> 8);
    }
  }
}

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

// Computes the rows that can be taken kRowsAtOnce at a time, if the weights suit PairByPair.
// Returns how many rows that were.
template <class Form>
VX_INLINE uint32_t ConvolveByPairs(WindowPlanes planes, intptr_t taps, const uint32_t* weights) {
  PairedWeights pairs;
  if (planes.rows < kRowsAtOnce || !PreparePairs(weights, taps, pairs)) return 0;
  const PairedWeights& prepared = pairs;
  WithTaps(taps, [=, &prepared](auto count) VX_INLINED {
    ConvolveRows<Form, kRowsAtOnce>(planes, PairByPair<decltype(count)>{count, prepared});
  });
  return planes.rows / kRowsAtOnce * kRowsAtOnce;
}

#endif

// Takes the planes' numbers as separate arguments, in registers: the caller would store a structure
// in parts, and a load of the whole waits for such stores.
template <class Form>
[[gnu::noinline]] void Convolve(const uint8_t* top, uint8_t* destination, uint32_t rows,
                                intptr_t columns, intptr_t sourceStride, intptr_t destinationStride,
                                intptr_t taps, const uint32_t* weights) {
  WindowPlanes planes{top, sourceStride, destination, destinationStride, rows, columns};
  if constexpr (Form::kBytes == 1) {
    ConvolveSingly(planes, taps, weights);
  } else {
#if defined(__SSSE3__)
    planes = planes.After(ConvolveByPairs<Form>(planes, taps, weights));
#endif
    if (planes.rows > 0) ConvolveByRows<Form>(planes, taps, weights);
  }
}

// For planes that overlap: takes one chunk of columns after another. Each row of a chunk is
// computed whole before it is stored.
constexpr intptr_t kChunk = 4096;
template <class Form>
void ConvolveRowByRow(WindowPlanes planes, intptr_t taps, const uint32_t* weights) {
  uint8_t formed[kChunk];
  for (intptr_t x = 0; x < planes.columns; x += kChunk) {
    const intptr_t columns = planes.columns - x < kChunk ? planes.columns - x : kChunk;
    for (uint32_t y = 0; y < planes.rows; ++y) {
      const WindowPlanes row = planes.After(y);
      Convolve<Form>(row.top + x, formed, 1, columns, row.sourceStride, 0, taps, weights);
      __builtin_memcpy(row.destination + x, formed, static_cast<size_t>(columns));
    }
  }
}

}  // namespace

template <class Form>
void FilterConvolveVertical8(const uint8_t* source, uint8_t* destination, uint32_t rows,
                             int32_t columns, int32_t sourceStride, int32_t destinationStride,
                             const ConvolutionKernel* kernel) {
  if (rows == 0 || columns < 1) return;
  const intptr_t radius = kernel->radius;
  const intptr_t taps = radius < 0 ? 0 : 2 * radius + 1;
  const WindowPlanes planes{taps == 0 ? source : source - radius * sourceStride,
                            sourceStride,
                            destination,
                            destinationStride,
                            rows,
                            columns};
  const PlaneArea target{destination, destinationStride, rows, columns};
  if (target.RowsShareBytes() ||
      Overlap({planes.top, sourceStride, rows + int64_t{taps} - (taps > 0), columns}, target))
    ConvolveRowByRow<Form>(planes, taps, kernel->weights);
  else
    Convolve<Form>(planes.top, destination, rows, columns, sourceStride, destinationStride, taps,
                   kernel->weights);
}

}  // namespace vantrix
