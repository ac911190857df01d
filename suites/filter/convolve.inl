// Bodies of convolve.h, for the units that instantiate them.
#pragma once

#include <type_traits>

#include "common/lane_ops.h"
#include "suites/filter/convolve.h"

namespace vantrix {

inline constexpr uint16_t kRoundingHalf = 128;
// Output rows that are formed together, so that each source row is loaded and widened once
// for all of them.
inline constexpr int kRowsAtOnce = 4;
// Windows of more rows than this have their weights spread over lanes as they are needed.
inline constexpr intptr_t kPreparedTaps = 64;

// Where a block of samples lies in its row: a whole register, or the two ends of a shorter
// row.
struct WholeBlock {
  intptr_t x;
  VX_LANE Bytes16 From(const uint8_t* row) const { return Load<Bytes16>(row + x); }
  VX_LANE void To(uint8_t* row, Bytes16 samples) const { Store(row + x, samples); }
};
template <int kBytes>
struct BlockOfEnds {
  intptr_t count;
  VX_LANE Bytes16 From(const uint8_t* row) const { return LoadEnds<Bytes16, kBytes>(row, count); }
  VX_LANE void To(uint8_t* row, Bytes16 samples) const { StoreEnds<kBytes>(row, count, samples); }
};

struct WindowPlanes {
  const uint8_t* top;  // the first row of the first output row's window
  intptr_t sourceStride;
  uint8_t* destination;
  intptr_t destinationStride;

  VX_LANE void NextRows(intptr_t rows) {
    top += rows * sourceStride;
    destination += rows * destinationStride;
  }
};

// The sums of kRows outputs of one block, in 16-bit lanes that wrap.
template <int kRows>
struct WindowSums {
  Words8 low[kRows], high[kRows];

  VX_INLINE explicit WindowSums(uint16_t start) {
#pragma GCC unroll 4
    for (int j = 0; j < kRows; ++j) low[j] = high[j] = Fill<Words8>(start);
  }
  template <class Place>
  VX_INLINE void StoreTo(const WindowPlanes& planes, Place place) const {
#pragma GCC unroll 4
    for (int j = 0; j < kRows; ++j)
      place.To(planes.destination + j * planes.destinationStride,
               Narrow(low[j] >> 8, high[j] >> 8));
  }
};

// Weights by themselves: prepared in all lanes, or spread one by one.
struct PreparedWeights {
  const Words8* lanes;
  VX_LANE Words8 operator[](intptr_t k) const { return lanes[k]; }
};
struct KernelWeights {
  const uint32_t* weights;
  VX_LANE Words8 operator[](intptr_t k) const {
    return Fill<Words8>(static_cast<uint16_t>(weights[k]));
  }
};

// Source rows one at a time: row i of the window takes part in output row j with weight
// i - j. Right for any weights.
template <class Form, class Taps, class Weights>
struct RowByRow {
  Taps taps;
  Weights weights;

  template <int kRows, class Place>
  VX_INLINE void Convolve(const WindowPlanes& planes, Place place) const {
    const intptr_t count = taps;
    WindowSums<kRows> sums(kRoundingHalf);
    const uint8_t* row = planes.top;
    const auto take = [&](intptr_t i, intptr_t first, intptr_t last) VX_INLINED {
      const Bytes16 samples = place.From(row);
      const Words8 low = WidenLow(samples), high = WidenHigh(samples);
#pragma GCC unroll 4
      for (int j = 0; j < kRows; ++j) {
        if (j < first || j > last) continue;
        const Words8 weight = weights[i - j];
        sums.low[j] += low * weight;
        sums.high[j] += high * weight;
      }
      row += planes.sourceStride;
    };
    // Rows that some windows have not reached or have left, and between them those of all.
    intptr_t i = 0;
#pragma GCC unroll 3
    for (; i < kRows - 1; ++i) take(i, i >= count ? i - count + 1 : 0, i);
    for (; i < count; ++i) take(i, 0, kRows - 1);
#pragma GCC unroll 3
    for (; i < count + kRows - 1; ++i) take(i, i - count + 1, kRows - 1);
    sums.StoreTo(planes, place);
  }
};

// kRows output rows. The last block reaches back over the one before.
template <int kRows, class Block>
VX_INLINE void ConvolveRows(const WindowPlanes& planes, intptr_t columns, const Block& block) {
  const auto convolve = [&](auto place)
                            VX_INLINED { block.template Convolve<kRows>(planes, place); };
  if (columns >= 16) {
    for (intptr_t x = 0; x < columns - 16; x += 16) convolve(WholeBlock{x});
    convolve(WholeBlock{columns - 16});
  } else if (columns >= 8) {
    convolve(BlockOfEnds<8>{columns});
  } else if (columns >= 4) {
    convolve(BlockOfEnds<4>{columns});
  } else if (columns >= 2) {
    convolve(BlockOfEnds<2>{columns});
  } else {
    convolve(BlockOfEnds<1>{columns});
  }
}

// Rows by blockOfRows, four at a time, the last ones by blockOfOne.
template <class BlockOfRows, class BlockOfOne>
VX_INLINE void ConvolveInLanes(WindowPlanes planes, uint32_t rows, intptr_t columns,
                               const BlockOfRows& blockOfRows, const BlockOfOne& blockOfOne) {
  for (; rows >= kRowsAtOnce; rows -= kRowsAtOnce) {
    ConvolveRows<kRowsAtOnce>(planes, columns, blockOfRows);
    planes.NextRows(kRowsAtOnce);
  }
  for (; rows > 0; --rows) {
    ConvolveRows<1>(planes, columns, blockOfOne);
    planes.NextRows(1);
  }
}

// Calls work with the number of taps, as a constant where that is a common one.
template <class Work>
VX_INLINE void WithTaps(intptr_t taps, Work work) {
  switch (taps) {
    case 3:
      return work(std::integral_constant<intptr_t, 3>{});
    case 5:
      return work(std::integral_constant<intptr_t, 5>{});
    case 7:
      return work(std::integral_constant<intptr_t, 7>{});
    default:
      return work(taps);
  }
}

template <class Form>
VX_INLINE void ConvolveByRows(const WindowPlanes& planes, uint32_t rows, intptr_t columns,
                              intptr_t taps, const uint32_t* weights) {
  const auto convolve = [&](auto count, auto lanes) VX_INLINED {
    const RowByRow<Form, decltype(count), decltype(lanes)> block{count, lanes};
    ConvolveInLanes(planes, rows, columns, block, block);
  };
  if (taps > kPreparedTaps) return convolve(taps, KernelWeights{weights});
  Words8 lanes[kPreparedTaps];
  for (intptr_t k = 0; k < taps; ++k) lanes[k] = KernelWeights{weights}[k];
  WithTaps(taps, [&](auto count) VX_INLINED { convolve(count, PreparedWeights{lanes}); });
}

VX_INLINE void ConvolveSingly(WindowPlanes planes, uint32_t rows, intptr_t columns, intptr_t taps,
                              const uint32_t* weights) {
  for (; rows > 0; --rows) {
    for (intptr_t x = 0; x < columns; ++x) {
      uint32_t sum = kRoundingHalf;
      for (intptr_t k = 0; k < taps; ++k)
        sum += planes.top[k * planes.sourceStride + x] * (weights[k] & 0xFFFF);
      planes.destination[x] = static_cast<uint8_t>(sum >> 8);
    }
    planes.NextRows(1);
  }
}

#if defined(__SSSE3__)

// Source rows two at a time, their samples interleaved: one instruction multiplies two
// samples by two weights. Samples less 128 are signed; what the sums lack for it is added
// at the start. Right while a weight is at most 255 and two neighbours come to at most 256,
// as those of a mean do.
//
// An output row of even number in its group meets weights 2 q and 2 q + 1 in a pair of rows,
// one of odd number weights 2 q - 1 and 2 q.
template <class Taps>
struct PairByPair {
  Taps taps;
  uint16_t start;
  const Bytes16 *even, *odd;  // the pairs of weights, in all lanes

  template <int kRows, class Place>
  VX_INLINE void Convolve(const WindowPlanes& planes, Place place) const {
    const intptr_t pairs = (taps + 1) / 2;
    WindowSums<kRows> sums(start);
    const uint8_t* row = planes.top;
    const auto take = [&](intptr_t p, intptr_t firstPair, intptr_t lastPair) VX_INLINED {
      const Bytes16 first = place.From(row) ^ 128;
      const Bytes16 second = place.From(row + planes.sourceStride) ^ 128;
      const Bytes16 low = InterleaveLow(first, second), high = InterleaveHigh(first, second);
#pragma GCC unroll 4
      for (int j = 0; j < kRows; ++j) {
        const intptr_t q = p - j / 2;
        if (j / 2 < firstPair || j / 2 > lastPair) continue;
        const Bytes16 weights = j % 2 == 0 ? even[q] : odd[q];
        sums.low[j] += MixedProductSums(weights, low);
        sums.high[j] += MixedProductSums(weights, high);
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

// Whether the weights suit PairByPair; then they were prepared.
VX_INLINE bool PreparePairs(const uint32_t* weights, intptr_t taps, Bytes16* even, Bytes16* odd,
                            uint16_t* start) {
  if (taps < 3 || taps > kPreparedTaps) return false;
  const auto weight = [=](intptr_t k) VX_INLINED -> uint32_t {
    return k < 0 || k >= taps ? 0 : weights[k] & 0xFFFF;
  };
  const auto pair = [=](intptr_t k) VX_INLINED {
    return As<Bytes16>(Fill<Words8>(static_cast<uint16_t>(weight(k) | weight(k + 1) << 8)));
  };
  uint32_t sum = 0;
  for (intptr_t k = 0; k < taps; ++k) {
    if (weight(k) > 255 || weight(k) + weight(k + 1) > 256) return false;
    sum += weight(k);
  }
  for (intptr_t q = 0; q < (taps + 1) / 2; ++q) {
    even[q] = pair(2 * q);
    odd[q] = pair(2 * q - 1);
  }
  *start = static_cast<uint16_t>(kRoundingHalf + 128 * sum);
  return true;
}

VX_INLINE bool ConvolveByPairs(const WindowPlanes& planes, uint32_t rows, intptr_t columns,
                               intptr_t taps, const uint32_t* weights) {
  Bytes16 even[kPreparedTaps / 2], odd[kPreparedTaps / 2];
  uint16_t start;
  if (!PreparePairs(weights, taps, even, odd, &start)) return false;
  WithTaps(taps, [&](auto count) VX_INLINED {
    ConvolveInLanes(planes, rows, columns, PairByPair<decltype(count)>{count, start, even, odd},
                    RowByRow<Ssse3, intptr_t, KernelWeights>{taps, {weights}});
  });
  return true;
}

#endif

template <class Form>
void FilterConvolveVertical8(const uint8_t* source, uint8_t* destination, uint32_t rows,
                             int32_t columns, int32_t sourceStride, int32_t destinationStride,
                             const ConvolutionKernel* kernel) {
  if (rows == 0 || columns < 1) return;
  const intptr_t radius = kernel->radius;
  const intptr_t taps = radius < 0 ? 0 : 2 * radius + 1;
  const WindowPlanes planes{taps == 0 ? source : source - radius * sourceStride, sourceStride,
                            destination, destinationStride};
  if constexpr (std::is_same_v<Form, Scalar>)
    return ConvolveSingly(planes, rows, columns, taps, kernel->weights);
#if defined(__SSSE3__)
  if (ConvolveByPairs(planes, rows, columns, taps, kernel->weights)) return;
#endif
  ConvolveByRows<Form>(planes, rows, columns, taps, kernel->weights);
}

}  // namespace vantrix
