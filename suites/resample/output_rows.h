// The walk over the output rows of the vertical pass.
#pragma once

#include "suites/resample/filter.h"

namespace vantrix {

// The source rows that one output row is made of, and what they weigh.
struct TapRows {
  const uint8_t* first;
  intptr_t stride;
  const int16_t* weights;
  int32_t count;

  VX_INLINE const uint8_t* Row(int32_t k) const { return first + k * stride; }
};

// Copies a row by the memory suite's live CopyBytes, in pieces that its count can tell.
void CopyRow(const uint8_t* source, uint8_t* destination, int64_t bytes);

// Makes each output row by filter(destination row, rows), or by the copy.
template <class Sample, class Rule>
VX_INLINE void ForEachOutputRow(const Sample* source, Sample* destination, int32_t count,
                                int32_t width, Taps taps, intptr_t sourceStride,
                                intptr_t destinationStride, Rule filter) {
  const auto from = reinterpret_cast<const uint8_t*>(source);
  const auto to = reinterpret_cast<uint8_t*>(destination);
  if (width < 1) return;
  for (int32_t i = 0; i < count; ++i) {
    uint8_t* const row = to + i * destinationStride;
    const uint8_t* const first = from + taps.First(i) * sourceStride;
    if (taps.count == 0 || taps.count == 1)
      CopyRow(first, row, int64_t{width} * int64_t{sizeof(Sample)});
    else
      filter(row, TapRows{first, sourceStride, taps.weights + taps.Base(i), taps.count});
  }
}

}  // namespace vantrix
