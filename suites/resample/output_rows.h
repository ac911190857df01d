// The output rows of the vertical pass.
#pragma once

#include "common/far.h"
#include "common/overlap.h"
#include "suites/resample/filter.h"
#include "suites/resample/signatures.h"

namespace vantrix {

// The source rows of one output row, and their weights.
struct TapRows {
  const uint8_t* first;
  intptr_t stride;
  const int16_t* weights;
  int32_t count;

  VX_INLINE const uint8_t* Row(int32_t k) const { return first + k * stride; }
};

// If an output row shares memory with its source rows,
// filters it one sample at a time and returns true.
template <class Sample>
bool FilterOverlapping(uint8_t* row, const uint8_t* first, intptr_t stride, const int16_t* weights,
                       int32_t count, int32_t width);

// Copies a row by the memory suite's live CopyBytes: in one call, or in several if `bytes` does not
// fit in the count of one.
void CopyRow(const uint8_t* source, uint8_t* destination, int64_t bytes);

// Whether FilterFarRows takes the planes. Rows that are copied stay whole: each is one call.
template <class Sample>
VX_INLINE bool AreTakenInPieces(int32_t count, int32_t width, Taps taps) {
  return taps.count > 1 && AreFar(count, 2 * int64_t{width} * int64_t{sizeof(Sample)});
}
// Filters far planes by a kernel: each output row piece by piece, from its start, so that a row
// over its sources is computed as if whole. While a piece is taken, that of the next output row is
// prefetched, and the source rows that only the latter takes.
template <class Sample>
void FilterFarRows(FilterVertical<Sample>* kernel, const Sample* source, Sample* destination,
                   int32_t count, int32_t width, Taps taps, int32_t sourceStride,
                   int32_t destinationStride);

// The same with a kernel's own arguments, so that it costs other calls of the kernel nothing.
template <class Sample, FilterVertical<Sample>* kKernel>
[[gnu::noinline]] void FilterFarBy(const Sample* source, Sample* destination, int32_t count,
                                   int32_t width, const int32_t* offsets, const uint8_t* phases,
                                   int32_t sourceStride, int32_t destinationStride,
                                   int32_t tapCount, const int16_t* weights) {
  FilterFarRows(kKernel, source, destination, count, width,
                Taps{offsets, phases, weights, static_cast<int16_t>(tapCount)}, sourceStride,
                destinationStride);
}

// Calls filter(destination row, rows) for each output row. With 0 or 1 taps copies rows instead.
template <class Sample, class Rule>
VX_INLINE void ForEachOutputRow(const Sample* source, Sample* destination, int32_t count,
                                int32_t width, Taps taps, intptr_t sourceStride,
                                intptr_t destinationStride, Rule filter) {
  const auto from = reinterpret_cast<const uint8_t*>(source);
  const auto to = reinterpret_cast<uint8_t*>(destination);
  if (width < 1) return;
  const int64_t bytes = int64_t{width} * int64_t{sizeof(Sample)};
  if (taps.count == 0 || taps.count == 1) {
    for (int32_t i = 0; i < count; ++i)
      CopyRow(from + taps.First(i) * sourceStride, to + i * destinationStride, bytes);
    return;
  }
  // An output row crosses its source rows if it starts from `least` to `least` + `crossings` bytes
  // after the first of them.
  const int64_t reach = taps.count > 0 ? (taps.count - int64_t{1}) * sourceStride : 0;
  const int64_t least = (reach < 0 ? reach : 0) - bytes + 1;
  auto crossings = static_cast<uint64_t>(Magnitude(reach) + 2 * bytes - 1);
  bool areColumnsCompared = false;  // once is enough: all rows have the same strides
  for (int32_t i = 0; i < count; ++i) {
    uint8_t* const row = to + i * destinationStride;
    const uint8_t* const first = from + taps.First(i) * sourceStride;
    const int16_t* const weights = taps.weights + taps.Base(i);
    const auto apart = static_cast<uint64_t>(AddressOf(row) - AddressOf(first) - least);
    if (__builtin_expect(apart < crossings, 0)) {
      if (!areColumnsCompared) {
        areColumnsCompared = true;
        if (ColumnsAreApart(first, sourceStride, bytes, row, destinationStride, bytes))
          crossings = 0;
      }
      if (crossings != 0 &&
          FilterOverlapping<Sample>(row, first, sourceStride, weights, taps.count, width))
        continue;
    }
    filter(row, TapRows{first, sourceStride, weights, taps.count});
  }
}

}  // namespace vantrix
