#include <array>
#include <type_traits>

#include "host/ordinary/ordinary.h"
#include "suites/resample/signatures.h"

namespace vantrix::host {
namespace {

uint8_t Finish(int32_t sum, uint8_t*) {
  sum >>= 14;
  return static_cast<uint8_t>(sum < 0 ? 0 : sum > 255 ? 255 : sum);
}
uint16_t Finish(int32_t sum, uint16_t*) {
  sum >>= 14;
  return static_cast<uint16_t>(sum < 0 ? 0 : sum > 32768 ? 32768 : sum);
}
float Finish(float sum, float*) { return sum * 6.1035156e-05f; }

int32_t Start(uint16_t) { return 8192; }
int32_t Start(uint8_t) { return 8192; }
float Start(float) { return 0; }

// Entry [w][255 + v] is w v / 255, rounded to nearest.
const auto kPart = [] {
  std::array<std::array<int16_t, 511>, 256> table;
  for (int w = 0; w < 256; ++w)
    for (int v = -255; v <= 255; ++v)
      table[w][255 + v] = static_cast<int16_t>((2 * w * v + (v < 0 ? -255 : 255)) / 510);
  return table;
}();

uint8_t Mixed(const uint8_t* at, int32_t fraction) {
  return static_cast<uint8_t>(at[0] + kPart[fraction][255 + at[1] - at[0]]);
}

// Calls work with the usual tap counts as constants, so that its loops are unrolled.
template <class Work>
void WithTaps(int32_t tapCount, Work work) {
  switch (const int32_t taps = static_cast<int16_t>(tapCount); taps) {
    case 2:
      return work(std::integral_constant<int32_t, 2>{});
    case 4:
      return work(std::integral_constant<int32_t, 4>{});
    case 6:
      return work(std::integral_constant<int32_t, 6>{});
    default:
      return work(taps);
  }
}

template <class Sample>
void Horizontal(const Sample* source, Sample* destination, uint32_t rows, int32_t width,
                const int32_t* offsets, const uint8_t* phases, int32_t sourceStride,
                int32_t destinationStride, int32_t tapCount, const int16_t* weights) {
  WithTaps(tapCount, [=](auto taps) mutable {
    const int32_t origin = 1 - taps / 2;
    for (uint32_t y = 0; y < rows; ++y) {
      for (int32_t x = 0; x < width; ++x) {
        const Sample* const s = source + origin + offsets[x];
        const int16_t* const w = weights + phases[x] * taps;
        auto sum = Start(Sample{});
        for (int32_t k = 0; k < taps; ++k) sum += s[k] * w[k];
        destination[x] = Finish(sum, destination);
      }
      source += sourceStride / static_cast<int32_t>(sizeof(Sample));
      destination += destinationStride / static_cast<int32_t>(sizeof(Sample));
    }
  });
}

template <class Sample>
void Vertical(const Sample* source, Sample* destination, int32_t rows, int32_t width,
              const int32_t* offsets, const uint8_t* phases, int32_t sourceStride,
              int32_t destinationStride, int32_t tapCount, const int16_t* weights) {
  WithTaps(tapCount, [=](auto taps) mutable {
    const int32_t origin = 1 - taps / 2;
    const intptr_t stride = sourceStride / static_cast<int32_t>(sizeof(Sample));
    for (int32_t y = 0; y < rows; ++y) {
      const Sample* const s = source + (origin + offsets[y]) * stride;
      const int16_t* const w = weights + phases[y] * taps;
      for (int32_t x = 0; x < width; ++x) {
        auto sum = Start(Sample{});
        for (int32_t k = 0; k < taps; ++k) sum += s[k * stride + x] * w[k];
        destination[x] = Finish(sum, destination);
      }
      destination += destinationStride / static_cast<int32_t>(sizeof(Sample));
    }
  });
}

void AverageRows(const uint8_t* source, uint8_t* destination, int32_t outputRows, int32_t width,
                 const int32_t* rowCounts, int32_t sourceStride, int32_t destinationStride) {
  for (int32_t y = 0; y < outputRows; ++y) {
    const int32_t n = rowCounts[y];
    const uint32_t reciprocal = 16777216u / static_cast<uint32_t>(n);
    for (int32_t x = 0; x < width; ++x) {
      uint32_t sum = static_cast<uint32_t>(n) / 2;
      for (int32_t k = 0; k < n; ++k) sum += source[intptr_t{k} * sourceStride + x];
      destination[x] = static_cast<uint8_t>(sum * reciprocal >> 24);
    }
    source += intptr_t{n} * sourceStride;
    destination += destinationStride;
  }
}

void AverageArea(const uint8_t* source, uint8_t* destination, int32_t outputRows,
                 int32_t outputColumns, int32_t blockWidth, int32_t blockHeight,
                 int32_t sourceStride, int32_t destinationStride) {
  const auto n = static_cast<uint32_t>(blockWidth * blockHeight), reciprocal = 16777216u / n;
  for (int32_t y = 0; y < outputRows; ++y) {
    for (int32_t x = 0; x < outputColumns; ++x) {
      const uint8_t* const block = source + intptr_t{x} * blockWidth;
      uint32_t sum = n / 2;
      for (int32_t j = 0; j < blockHeight; ++j)
        for (int32_t i = 0; i < blockWidth; ++i) sum += block[intptr_t{j} * sourceStride + i];
      destination[x] = static_cast<uint8_t>(sum * reciprocal >> 24);
    }
    source += intptr_t{blockHeight} * sourceStride;
    destination += destinationStride;
  }
}

void Stepped(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t width,
             const int32_t* rowLengths, int32_t sourceStride, int32_t destinationStride) {
  for (int32_t y = 0; y < rows; ++y) {
    int64_t step = 0, position = -(int64_t{3} << 32);  // of length 0: what is before the row
    if (rowLengths[y] != 0) {
      step = static_cast<int64_t>(width * 4294967296.0 / rowLengths[y]);
      position = (int64_t{width} << 31) - ((width - 1) * step >> 1);
    }
    for (int32_t x = 0; x < width; ++x, position += step) {
      int64_t index = position >> 32;
      if (index < -2) index = -3;
      if (index > width + 2) index = width + 2;
      destination[x] = source[index];
    }
    source += sourceStride;
    destination += destinationStride;
  }
}

void Positions1D(const uint8_t* source, uint8_t* destination, int32_t count, int32_t sourceLength,
                 const int32_t* positions, int32_t mode) {
  const bool isLinear = static_cast<uint16_t>(mode) != 0;
  for (int32_t i = 0; i < count; ++i) {
    const int32_t p = positions[i] + (isLinear ? 128 : 32768), index = p >> 16;
    const int32_t fraction = isLinear ? p >> 8 & 255 : 0;
    if (index < 0 || index + (fraction != 0) >= sourceLength) continue;
    destination[i] = fraction ? Mixed(source + index, fraction) : source[index];
  }
}

void Positions2D(const uint8_t* source, uint8_t* destination, int32_t count, int32_t sourceWidth,
                 int32_t sourceHeight, const int32_t* positions, int32_t sourceStride,
                 int32_t mode) {
  const bool isLinear = static_cast<uint16_t>(mode) != 0;
  for (int32_t i = 0; i < count; ++i) {
    const int32_t px = positions[2 * i] + (isLinear ? 128 : 32768), x = px >> 16;
    const int32_t py = positions[2 * i + 1] + (isLinear ? 128 : 32768), y = py >> 16;
    const int32_t fx = isLinear ? px >> 8 & 255 : 0, fy = isLinear ? py >> 8 & 255 : 0;
    if (x < 0 || x + (fx != 0) >= sourceWidth || y < 0 || y + (fy != 0) >= sourceHeight) continue;
    const uint8_t* const at = source + intptr_t{y} * sourceStride + x;
    int32_t sample = fx ? Mixed(at, fx) : at[0];
    if (fy) {
      const int32_t below = fx ? Mixed(at + sourceStride, fx) : at[sourceStride];
      sample += kPart[fy][255 + below - sample];
    }
    destination[i] = static_cast<uint8_t>(sample);
  }
}

}  // namespace

std::span<const Ordinary> OrdinaryResampling() {
  static const Ordinary routines[] = {
      Use(3, AverageRows),      Use(5, Horizontal<uint8_t>),   Use(6, Vertical<uint8_t>),
      Use(7, Stepped),          Use(13, Horizontal<uint16_t>), Use(18, Positions1D),
      Use(19, Positions2D),     Use(24, AverageArea),          Use(26, Horizontal<float>),
      Use(27, Vertical<float>),
  };
  return routines;
}

}  // namespace vantrix::host
