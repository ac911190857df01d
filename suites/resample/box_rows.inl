// The row average of box.h, for the units that instantiate it.
#pragma once

#include "suites/resample/average.h"
#include "suites/resample/box.h"
#include "suites/resample/computed_row.h"

namespace vantrix {

// The average of `count` rows, at most Average::kCountIn16Bits, or of kRows rows if that is not 0.
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
    } else {
      const ColumnSums<V> sums = SumColumns<V, kRows>(first, stride, count, read);
      return As<V>(average.OfCount<kRows>(sums.even) | average.OfCount<kRows>(sums.odd) << 8);
    }
  }
  VX_INLINE void NextRow() { first += count * stride; }
  VX_INLINE PlaneArea SourceOf(int64_t outputRows, int64_t columns) const {
    return {first, stride, outputRows * count, columns};
  }
};

// The average of more rows: the sums go on in 32-bit lanes,
// the even and the odd ones apart once more.
struct AverageOfMany : AveragedRow<0> {
  template <class V, class Read>
  VX_INLINE V Result(Read read) const {
    if constexpr (kIsOneSample<V>) {
      return AveragedRow<0>::Result<V>(read);
    } else {
      U32<V> evenEven{}, evenOdd{}, oddEven{}, oddOdd{};
      for (int32_t k = 0, rows; k < count; k += rows) {
        rows = count - k < Average::kCountIn16Bits ? count - k : Average::kCountIn16Bits;
        const ColumnSums<V> sums = SumColumns<V>(first + k * stride, stride, rows, read);
        evenEven += As<U32<V>>(sums.even) & 65535;
        evenOdd += As<U32<V>>(sums.even) >> 16;
        oddEven += As<U32<V>>(sums.odd) & 65535;
        oddOdd += As<U32<V>>(sums.odd) >> 16;
      }
      return As<V>(average.Of(evenEven) | average.Of(oddEven) << 8 | average.Of(evenOdd) << 16 |
                   average.Of(oddOdd) << 24);
    }
  }
};

// The average of two rows is their rounded mean.
struct MeanOfTwo {
  const uint8_t* first;
  intptr_t stride;

  template <class V, class Read>
  VX_INLINE V Result(Read read) const {
    return RoundedMean(read(first), read(first + stride));
  }
  VX_INLINE void NextRow() { first += 2 * stride; }
  VX_INLINE PlaneArea SourceOf(int64_t outputRows, int64_t columns) const {
    return {first, stride, 2 * outputRows, columns};
  }
};

// A function for each operand: in one function they would need more registers than there are.
template <class Form, class From>
[[gnu::noinline]] void WriteRows(int32_t rows, int32_t width, Output output, From from) {
  ApplyToRows<Form>(rows, width, output, AsItIs{}, from);
}

template <class Form>
void BoxAverageRows8(const uint8_t* source, uint8_t* destination, int32_t outputRows, int32_t width,
                     const int32_t* rowCounts, int32_t sourceStride, int32_t destinationStride) {
  if (width < 1) return;
  const intptr_t stride = sourceStride;
  for (int32_t y = 0, rows; y < outputRows; y += rows) {
    // Output rows with the same count are taken together.
    const int32_t count = rowCounts[y];
    rows = 1;
    while (y + rows < outputRows && rowCounts[y + rows] == count) ++rows;
    const Average average(count == 0 ? 1 : count);
    const auto write = [&](auto operand) VX_INLINED {
      WriteRows<Form>(rows, width, Output{{destination, destinationStride}}, operand);
    };
    if (count < 0)
      write(Constant{average.Of(0u)});
    else if (count == 1)
      write(Plane{source, sourceStride});
    else if (count == 2)
      write(Computed<MeanOfTwo>{{source, stride}});
    else if (count > Average::kCountIn16Bits)
      write(Computed<AverageOfMany>{{{source, stride, count, average}}});
    else if (count > 0)
      WithConstant<3, 4, 7, 8>(
          count, [&]<int kRows>(std::integral_constant<int, kRows>) VX_INLINED {
            write(Computed<AveragedRow<kRows>>{{source, stride, count, average}});
          });
    source += intptr_t{count} * rows * stride;
    destination += intptr_t{rows} * destinationStride;
  }
}

}  // namespace vantrix
