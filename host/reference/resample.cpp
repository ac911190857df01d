#include <cstring>

#include "host/exercise/exercises.h"
#include "host/reference/reference.h"
#include "host/reference/samples.h"
#include "suites/resample/signatures.h"

namespace vantrix::host {
namespace {

// Returns the quotient rounded down.
int64_t Floor(int64_t n, int64_t d) { return n >= 0 ? n / d : -((-n + d - 1) / d); }

// Returns the average of n samples with this sum, by the truncated reciprocal.
uint8_t BoxAverage(uint32_t sum, int64_t n) {
  const int64_t reciprocal = 16777216 / n, half = Floor(n, 2);
  const auto product =
      static_cast<uint32_t>(int64_t{sum} + half) * static_cast<uint32_t>(reciprocal);
  return static_cast<uint8_t>(product / 16777216);
}

void AverageRows(const uint8_t* source, uint8_t* destination, int32_t outputRows, int32_t width,
                 const int32_t* rowCounts, int32_t sourceStride, int32_t destinationStride) {
  if (width < 1) return;
  int64_t first = 0;  // source row
  for (int32_t y = 0; y < outputRows; ++y) {
    const int32_t n = rowCounts[y];
    if (n == 0) continue;
    for (int32_t x = 0; x < width; ++x) {
      uint32_t sum = 0;
      for (int32_t k = 0; k < n; ++k) sum += source[(first + k) * sourceStride + x];
      At(destination, y, x, destinationStride) = BoxAverage(sum, n);
    }
    first += n;
  }
}

void AverageArea(const uint8_t* source, uint8_t* destination, int32_t outputRows,
                 int32_t outputColumns, int32_t blockWidth, int32_t blockHeight,
                 int32_t sourceStride, int32_t destinationStride) {
  if (blockWidth < 1 || blockHeight < 1) return;
  ForEachSample(outputRows, outputColumns, [&](int32_t y, int32_t x) {
    uint32_t sum = 0;
    for (int32_t j = 0; j < blockHeight; ++j)
      for (int32_t i = 0; i < blockWidth; ++i)
        sum += At(source, y * blockHeight + j, x * blockWidth + i, sourceStride);
    At(destination, y, x, destinationStride) = BoxAverage(sum, int64_t{blockWidth} * blockHeight);
  });
}

// Returns one filtered sample from tap(k) and weight(k) for k below taps.
template <class Sample, class Tap, class Weight>
Sample Filtered(int32_t taps, Tap tap, Weight weight) {
  if constexpr (std::is_same_v<Sample, float>) {
    float sum = 0;
    for (int32_t k = 0; k < taps; ++k) {
      const float product = tap(k) * static_cast<float>(weight(k));
      sum = sum + product;
    }
    return sum * 6.1035156e-05f;
  } else {
    uint32_t sum = 8192;
    for (int32_t k = 0; k < taps; ++k) sum += static_cast<uint32_t>(int64_t{tap(k)} * weight(k));
    const int64_t value = Floor(static_cast<int32_t>(sum), 16384);
    const int64_t white = sizeof(Sample) == 1 ? 255 : 32768;
    return static_cast<Sample>(value < 0 ? 0 : value > white ? white : value);
  }
}

template <class Sample>
void Horizontal(const Sample* source, Sample* destination, uint32_t rows, int32_t width,
                const int32_t* offsets, const uint8_t* phases, int32_t sourceStride,
                int32_t destinationStride, int32_t tapCount, const int16_t* weights) {
  const auto taps = static_cast<int16_t>(tapCount);
  if (width < 1) return;
  for (uint32_t y = 0; y < rows; ++y) {
    for (int32_t x = 0; x < width; ++x) {
      const auto row = reinterpret_cast<const uint8_t*>(source) + int64_t{y} * sourceStride;
      const auto tap = [&](int32_t k) {
        Sample sample;
        const int64_t index = int64_t{offsets[x]} - (taps / 2 - 1) + k;
        std::memcpy(&sample, row + index * int64_t{sizeof(Sample)}, sizeof sample);
        return sample;
      };
      const auto weight = [&](int32_t k) { return weights[phases[x] * taps + k]; };
      Sample result;
      if (taps == 1 && std::is_same_v<Sample, float>)
        result = static_cast<Sample>(tap(0) * 6.1035156e-05f * weight(0));
      else if (taps == 0 || taps == 1)
        result = tap(0);
      else
        result = Filtered<Sample>(taps, tap, weight);
      std::memcpy(reinterpret_cast<uint8_t*>(destination) + int64_t{y} * destinationStride +
                      int64_t{x} * int64_t{sizeof(Sample)},
                  &result, sizeof result);
    }
  }
}

// Strides count samples.
template <class Sample>
void Vertical(const Sample* source, Sample* destination, int32_t rows, int32_t width,
              const int32_t* offsets, const uint8_t* phases, int64_t sourceStride,
              int64_t destinationStride, int32_t tapCount, const int16_t* weights) {
  const auto taps = static_cast<int16_t>(tapCount);
  if (width < 1) return;
  for (int32_t y = 0; y < rows; ++y) {
    const int64_t first = int64_t{offsets[y]} - (taps / 2 - 1);
    Sample* const d = destination + y * destinationStride;
    if (taps == 0 || taps == 1) {
      std::memmove(d, source + first * sourceStride, static_cast<size_t>(width) * sizeof(Sample));
      continue;
    }
    for (int32_t x = 0; x < width; ++x) {
      const auto tap = [&](int32_t k) { return source[(first + k) * sourceStride + x]; };
      const auto weight = [&](int32_t k) { return weights[phases[y] * taps + k]; };
      d[x] = Filtered<Sample>(taps, tap, weight);
    }
  }
}

void Vertical8(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t width,
               const int32_t* offsets, const uint8_t* phases, int32_t sourceStride,
               int32_t destinationStride, int32_t tapCount, const int16_t* weights) {
  Vertical(source, destination, rows, width, offsets, phases, sourceStride, destinationStride,
           tapCount, weights);
}
void Vertical32F(const float* source, float* destination, int32_t rows, int32_t width,
                 const int32_t* offsets, const uint8_t* phases, int32_t sourceStride,
                 int32_t destinationStride, int32_t tapCount, const int16_t* weights) {
  Vertical(source, destination, rows, width, offsets, phases, sourceStride / 4,
           destinationStride / 4, tapCount, weights);
}

void StretchRows(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t width,
                 const int32_t* rowLengths, int32_t sourceStride, int32_t destinationStride) {
  using Exact = __int128;
  ForEachSample(rows, width, [&](int32_t y, int32_t x) {
    Exact index = -3;
    if (rowLengths[y] != 0) {
      const auto step = static_cast<int64_t>(width * 4294967296.0 / rowLengths[y]);
      const Exact reach = Exact{width - 1} * step >> 1, middle = Exact{width} << 31;
      index = (middle - reach + Exact{x} * step) >> 32;
      if (index < -2) index = -3;
      if (index > width + 2) index = width + 2;
    }
    At(destination, y, x, destinationStride) =
        At(source, y, static_cast<int32_t>(index), sourceStride);
  });
}

// A coordinate in a mode: an index, and how much of the next sample, in 255ths.
struct Coordinate {
  int64_t index, fraction;

  Coordinate(int32_t position, bool isLinear) {
    const int64_t p = int64_t{position} + (isLinear ? 128 : 32768);
    index = Floor(p, 65536);
    fraction = isLinear ? (p - 65536 * index) / 256 : 0;
  }
  bool IsInside(int64_t length) const {
    return index >= 0 && index < length && (fraction == 0 || index + 1 < length);
  }
};
int Between(int first, int second, int64_t fraction) {
  return first + Rounded(static_cast<int>(fraction) * (second - first), 255);
}

void SampleLine(const uint8_t* source, uint8_t* destination, int32_t count, int32_t sourceLength,
                const int32_t* positions, int32_t mode) {
  for (int32_t i = 0; i < count; ++i) {
    const Coordinate at(positions[i], static_cast<uint16_t>(mode) != 0);
    if (!at.IsInside(sourceLength)) continue;
    const uint8_t* const first = source + at.index;
    destination[i] = at.fraction == 0
                         ? first[0]
                         : static_cast<uint8_t>(Between(first[0], first[1], at.fraction));
  }
}

void SampleArea(const uint8_t* source, uint8_t* destination, int32_t count, int32_t sourceWidth,
                int32_t sourceHeight, const int32_t* positions, int32_t sourceStride,
                int32_t mode) {
  const bool isLinear = static_cast<uint16_t>(mode) != 0;
  for (int32_t i = 0; i < count; ++i) {
    const Coordinate x(positions[2 * i], isLinear), y(positions[2 * i + 1], isLinear);
    if (!x.IsInside(sourceWidth) || !y.IsInside(sourceHeight)) continue;
    const auto alongX = [&](int64_t row) -> int {
      const uint8_t* const first = source + row * sourceStride + x.index;
      return x.fraction == 0 ? first[0] : Between(first[0], first[1], x.fraction);
    };
    const int above = alongX(y.index);
    destination[i] = static_cast<uint8_t>(
        y.fraction == 0 ? above : Between(above, alongX(y.index + 1), y.fraction));
  }
}

}  // namespace

std::span<const Reference> ResampleReferences() {
  static const Reference references[] = {
      Refer(3, AverageRows, ExerciseBoxAverageRows),
      Refer(5, Horizontal<uint8_t>, ExerciseFilterHorizontal8),
      Refer(6, Vertical8, ExerciseFilterVertical8),
      Refer(7, StretchRows, ExerciseResampleRowsStepped),
      Refer(13, Horizontal<uint16_t>, ExerciseFilterHorizontal16),
      Refer(18, SampleLine, ExerciseSampleAtPositions1D),
      Refer(19, SampleArea, ExerciseSampleAtPositions2D),
      Refer(24, AverageArea, ExerciseBoxAverageArea),
      Refer(26, Horizontal<float>, ExerciseFilterHorizontal32F),
      Refer(27, Vertical32F, ExerciseFilterVertical32F),
  };
  return references;
}

}  // namespace vantrix::host
