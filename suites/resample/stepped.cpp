#include "suites/resample/stepped.h"

#include <cstring>

#include "plugin/base/suites.h"
#include "suites/memory/signatures.h"

namespace vantrix {
namespace {

using Exact = __int128;

// The positions of a row's columns, for a positive step. A mirrored row is the same from its end,
// as the rule is symmetric.
struct Steps {
  int32_t width;
  int64_t step;

  Exact Position(int32_t x) const {
    return (Exact{width} << 31) - (Exact{width - 1} * step >> 1) + Exact{x} * step;
  }

  // The first column whose position is at a source index or after it: estimated to within one
  // column, then corrected.
  int32_t ColumnAt(int64_t index) const {
    const Exact limit = Exact{index} << 32;
    const double middle = width * 0.5;
    const double estimate =
        (static_cast<double>(index) - middle) * 4294967296.0 / static_cast<double>(step) + middle;
    int32_t x = estimate < 0 ? 0 : estimate < width ? static_cast<int32_t>(estimate) : width;
    while (x > 0 && Position(x - 1) >= limit) --x;
    while (x < width && Position(x) < limit) ++x;
    return x;
  }
};

// Writes the columns from `begin` to `end`, whose positions are all inside the source row or its
// border, from left to right in the destination.
void StretchColumns(const uint8_t* source, uint8_t* destination, const Steps& steps, int32_t begin,
                    int32_t end, bool isMirrored) {
  if (begin >= end) return;
  auto position = static_cast<uint64_t>(steps.Position(isMirrored ? end - 1 : begin));
  const auto step = static_cast<uint64_t>(isMirrored ? -steps.step : steps.step);
  uint8_t* const first = destination + (isMirrored ? steps.width - end : begin);
  for (int32_t x = 0; x < end - begin; ++x, position += step)
    first[x] = source[static_cast<int64_t>(position) >> 32];
}

void StretchRow(const uint8_t* source, uint8_t* destination, int32_t width, int32_t length) {
  const double size = width * 4294967296.0 / length;
  const bool isMirrored = length < 0;
  const Steps steps{width, static_cast<int64_t>(isMirrored ? -size : size)};
  const int32_t begin = steps.ColumnAt(-2), end = steps.ColumnAt(int64_t{width} + 3);
  const auto fill = [=](int32_t first, int32_t last, intptr_t index) {
    if (first < last)
      std::memset(destination + (isMirrored ? width - last : first), source[index],
                  static_cast<size_t>(last - first));
  };
  const auto fillEnd = [=](bool isFirst) {
    if (isFirst)
      fill(0, begin, -3);
    else
      fill(end, width, intptr_t{width} + 2);
  };
  fillEnd(!isMirrored);
  StretchColumns(source, destination, steps, begin, end, isMirrored);
  fillEnd(isMirrored);
}

}  // namespace

void ResampleRowsStepped8(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t width,
                          const int32_t* rowLengths, int32_t sourceStride,
                          int32_t destinationStride) {
  if (width < 1) return;
  for (int32_t y = 0; y < rows; ++y, source += sourceStride, destination += destinationStride) {
    if (rowLengths[y] == 0)
      Call<FillBytesRoutine>(memorySuite.live[MemorySlot::kFillBytes])(destination, width,
                                                                       source[-3]);
    else
      StretchRow(source, destination, width, rowLengths[y]);
  }
}

}  // namespace vantrix
