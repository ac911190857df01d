// Bodies of box.h, for the units that instantiate them.
#pragma once

#include "suites/resample/average.h"
#include "suites/resample/box.h"
#include "suites/resample/computed_row.h"

namespace vantrix {
namespace {

// The rule of a row that is the average of `count` rows: kRows, where that is not 0.
template <int kRows>
struct AveragedRow {
  const uint8_t* first;
  intptr_t stride;
  int32_t count;
  Average average;

  template <class V, class Read>
  VX_INLINE V Result(Read read) const {
    if constexpr (kIsOneSample<V>) {
      uint32_t sum = 0;
      for (int32_t k = 0; k < count; ++k) sum += read(first + k * stride)[0];
      return V{average.Of(sum)};
    } else if (kRows > 0 || count <= Average::kWordCount) {
      const ColumnSums<V> sums = SumColumns<V, kRows>(first, stride, count, read);
      return As<V>(average.OfCount<kRows>(sums.even) | average.OfCount<kRows>(sums.odd) << 8);
    } else {
      return As<V>(ResultOfMany<V>(read));
    }
  }

  // By parity once more, in 32-bit lanes.
  template <class V, class Read>
  VX_INLINE Sums<V> ResultOfMany(Read read) const {
    Sums<V> evenEven{}, evenOdd{}, oddEven{}, oddOdd{};
    for (int32_t k = 0, rows; k < count; k += rows) {
      rows = count - k < Average::kWordCount ? count - k : Average::kWordCount;
      const ColumnSums<V> sums = SumColumns<V>(first + k * stride, stride, rows, read);
      evenEven += As<Sums<V>>(sums.even) & 65535;
      evenOdd += As<Sums<V>>(sums.even) >> 16;
      oddEven += As<Sums<V>>(sums.odd) & 65535;
      oddOdd += As<Sums<V>>(sums.odd) >> 16;
    }
    return average.Of(evenEven) | average.Of(oddEven) << 8 | average.Of(evenOdd) << 16 |
           average.Of(oddOdd) << 24;
  }
};

// Two rows average to their rounded mean.
struct MeanOfTwo {
  const uint8_t *a, *b;

  template <class V, class Read>
  VX_INLINE V Result(Read read) const {
    return RoundedMean(read(a), read(b));
  }
};

}  // namespace

template <class Form>
void BoxAverageRows8(const uint8_t* source, uint8_t* destination, int32_t outputRows, int32_t width,
                     const int32_t* rowCounts, int32_t sourceStride, int32_t destinationStride) {
  if (width < 1) return;
  const intptr_t stride = sourceStride;
  for (int32_t y = 0; y < outputRows; ++y, destination += destinationStride) {
    const int32_t count = rowCounts[y];
    if (count == 0) continue;
    const Average average(count);
    if (count < 0)
      WriteRow<Form>(destination, width, Constant{average.Of(0u)});
    else if (count == 1)
      WriteRow<Form>(destination, width, Plane{source, 0});
    else if (count == 2)
      WriteRow<Form>(destination, width, Computed<MeanOfTwo>{{source, source + stride}});
    else
      WithConstant<3, 4>(count, [&]<int kRows>(std::integral_constant<int, kRows>) VX_INLINED {
        WriteRow<Form>(destination, width,
                       Computed<AveragedRow<kRows>>{{source, stride, count, average}});
      });
    source += count * stride;
  }
}

}  // namespace vantrix
