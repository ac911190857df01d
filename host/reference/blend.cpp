#include <array>
#include <cstring>

#include "host/exercise/exercises.h"
#include "host/reference/reference.h"
#include "host/reference/samples.h"

namespace vantrix::host {
namespace {

constexpr int Screened(int a, int b) { return a + b - Product(a, b); }

// Returns 255 a / b, halves up, if b > a, else 255.
constexpr int Quotient(int a, int b) { return b > a ? (255 * a + b / 2) / b : 255; }

// The modes at full strength, from the destination's and the source's sample.
constexpr int Normal(int, int s) { return s; }
constexpr int Screen(int d, int s) { return Screened(s, d); }
constexpr int Overlay(int d, int s) {
  return d < 128 ? Product(2 * d, s) : Screened(2 * d + 1 - 256, s);
}
constexpr int HardLight(int d, int s) {
  return s < 128 ? Product(2 * s, d) : Screened(2 * s - 256, d);
}
constexpr int Multiply(int d, int s) { return Product(s, d); }
constexpr int Lighten(int d, int s) { return s > d ? s : d; }
constexpr int Darken(int d, int s) { return s < d ? s : d; }
using Mode = int(int d, int s);

// Returns a value part of the way from d to r.
constexpr int Part(int d, int r, int weight) { return d + Rounded(weight * (r - d), 255); }

// A copy of a row from before it is written.
using RowCopy = std::array<uint8_t, 4096>;
const uint8_t* CopyOf(RowCopy& copy, const uint8_t* row, int32_t columns) {
  std::memcpy(copy.data(), row, static_cast<size_t>(columns));
  return copy.data();
}

// If kCopies, rows of up to 4096 samples are copied first.
template <Mode& kMode, bool kCopies>
void Plain(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t columns,
           int32_t sourceStride, int32_t destinationStride) {
  RowCopy copy;
  for (int32_t y = 0; y < rows && columns > 0; ++y) {
    const uint8_t* s = &At(source, y, 0, sourceStride);
    uint8_t* const d = &At(destination, y, 0, destinationStride);
    if (kCopies && columns <= 4096) s = CopyOf(copy, s, columns);
    for (int32_t x = 0; x < columns; ++x) d[x] = static_cast<uint8_t>(kMode(d[x], s[x]));
  }
}

template <Mode& kMode, bool kCopies>
void WithOpacity(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t columns,
                 int32_t sourceStride, int32_t destinationStride, uint32_t opacity) {
  const int k = static_cast<uint8_t>(opacity);
  RowCopy copy;
  for (int32_t y = 0; y < rows && columns > 0; ++y) {
    const uint8_t* s = &At(source, y, 0, sourceStride);
    uint8_t* const d = &At(destination, y, 0, destinationStride);
    if (kCopies && columns <= 4096) s = CopyOf(copy, s, columns);
    for (int32_t x = 0; x < columns; ++x)
      d[x] = static_cast<uint8_t>(Part(d[x], kMode(d[x], s[x]), k));
  }
}

template <Mode& kMode, bool kCopies>
void UnderMask(const uint8_t* source, uint8_t* destination, const uint8_t* mask, int32_t rows,
               int32_t columns, int32_t sourceStride, int32_t destinationStride,
               int32_t maskStride) {
  RowCopy sourceCopy, maskCopy;
  for (int32_t y = 0; y < rows && columns > 0; ++y) {
    const uint8_t* s = &At(source, y, 0, sourceStride);
    const uint8_t* m = &At(mask, y, 0, maskStride);
    uint8_t* const d = &At(destination, y, 0, destinationStride);
    if (kCopies && columns <= 4096) {
      s = CopyOf(sourceCopy, s, columns);
      m = CopyOf(maskCopy, m, columns);
    }
    for (int32_t x = 0; x < columns; ++x)
      d[x] = static_cast<uint8_t>(Part(d[x], kMode(d[x], s[x]), m[x]));
  }
}

template <Mode& kMode, bool kCopies>
void ColorUnderMask(uint32_t color, uint8_t* destination, const uint8_t* mask, int32_t rows,
                    int32_t columns, int32_t destinationStride, int32_t maskStride) {
  const int c = static_cast<uint8_t>(color);
  RowCopy copy;
  for (int32_t y = 0; y < rows && columns > 0; ++y) {
    const uint8_t* m = &At(mask, y, 0, maskStride);
    uint8_t* const d = &At(destination, y, 0, destinationStride);
    if (kCopies && columns <= 4096) m = CopyOf(copy, m, columns);
    for (int32_t x = 0; x < columns; ++x)
      d[x] = static_cast<uint8_t>(Part(d[x], kMode(d[x], c), m[x]));
  }
}

void ThresholdMasked(const uint8_t* source, uint8_t* destination, const uint8_t* mask, int32_t rows,
                     int32_t columns, int32_t sourceStride, int32_t destinationStride,
                     int32_t maskStride) {
  ForEachSample(rows, columns, [&](int32_t y, int32_t x) {
    if (At(mask, y, x, maskStride) >= 128)
      At(destination, y, x, destinationStride) = At(source, y, x, sourceStride);
  });
}

void ColorThresholdMasked(uint32_t color, uint8_t* destination, const uint8_t* mask, int32_t rows,
                          int32_t columns, int32_t destinationStride, int32_t maskStride) {
  ForEachSample(rows, columns, [&](int32_t y, int32_t x) {
    if (At(mask, y, x, maskStride) >= 128)
      At(destination, y, x, destinationStride) = static_cast<uint8_t>(color);
  });
}

void ColorWhereZero(const uint8_t* mask, uint8_t* destination, int32_t rows, int32_t columns,
                    int32_t maskStride, int32_t destinationStride, uint32_t color) {
  ForEachSample(rows, columns, [&](int32_t y, int32_t x) {
    if (At(mask, y, x, maskStride) == 0)
      At(destination, y, x, destinationStride) = static_cast<uint8_t>(color);
  });
}

void MultiplyPlanes(const uint8_t* first, uint8_t* destination, const uint8_t* second, int32_t rows,
                    int32_t columns, int32_t firstStride, int32_t destinationStride,
                    int32_t secondStride) {
  ForEachSample(rows, columns, [&](int32_t y, int32_t x) {
    At(destination, y, x, destinationStride) =
        static_cast<uint8_t>(Product(At(first, y, x, firstStride), At(second, y, x, secondStride)));
  });
}

void InvertMultiplyPlanes(const uint8_t* first, uint8_t* destination, const uint8_t* second,
                          int32_t rows, int32_t columns, int32_t firstStride,
                          int32_t destinationStride, int32_t secondStride) {
  ForEachSample(rows, columns, [&](int32_t y, int32_t x) {
    At(destination, y, x, destinationStride) = static_cast<uint8_t>(
        255 - Product(255 - At(first, y, x, firstStride), At(second, y, x, secondStride)));
  });
}

void MultiplyPlanesInvert(const uint8_t* first, const uint8_t* second, uint8_t* destination,
                          int32_t rows, int32_t columns, int32_t firstStride, int32_t secondStride,
                          int32_t destinationStride, uint32_t invertFirst, uint32_t invertSecond,
                          uint32_t invertResult) {
  const auto inverted = [](int value, uint32_t flag) {
    return static_cast<uint8_t>(flag) != 0 ? 255 - value : value;
  };
  ForEachSample(rows, columns, [&](int32_t y, int32_t x) {
    const int a = inverted(At(first, y, x, firstStride), invertFirst);
    const int b = inverted(At(second, y, x, secondStride), invertSecond);
    At(destination, y, x, destinationStride) =
        static_cast<uint8_t>(inverted(Product(a, b), invertResult));
  });
}

void BurnPlanes(const uint8_t* base, uint8_t* destination, const uint8_t* blend, int32_t rows,
                int32_t columns, int32_t baseStride, int32_t destinationStride,
                int32_t blendStride) {
  ForEachSample(rows, columns, [&](int32_t y, int32_t x) {
    At(destination, y, x, destinationStride) = static_cast<uint8_t>(
        255 - Quotient(255 - At(base, y, x, baseStride), At(blend, y, x, blendStride)));
  });
}

void ScreenShare(uint8_t* share, uint8_t* combined, int32_t rows, int32_t columns,
                 int32_t shareStride, int32_t combinedStride) {
  ForEachSample(rows, columns, [&](int32_t y, int32_t x) {
    uint8_t& q = At(share, y, x, shareStride);
    uint8_t& p = At(combined, y, x, combinedStride);
    const int screened = Screened(p, q), added = screened - p;
    p = static_cast<uint8_t>(screened);
    q = static_cast<uint8_t>(Quotient(added, screened));
  });
}

}  // namespace

std::span<const Reference> BlendReferences() {
  static const Reference references[] = {
      Refer(2, UnderMask<Normal, false>, ExerciseMaskedBlend),
      Refer(3, ColorUnderMask<Normal, false>, ExerciseColorMaskedBlend),
      Refer(7, UnderMask<Darken, false>, ExerciseMaskedBlend),
      Refer(8, ColorUnderMask<Darken, false>, ExerciseColorMaskedBlend),
      Refer(10, UnderMask<Lighten, false>, ExerciseMaskedBlend),
      Refer(11, ColorUnderMask<Lighten, false>, ExerciseColorMaskedBlend),
      Refer(22, UnderMask<Multiply, false>, ExerciseMaskedBlend),
      Refer(24, Plain<Multiply, false>, ExercisePlaneBlend),
      Refer(26, ColorUnderMask<Screen, true>, ExerciseColorMaskedBlend),
      Refer(27, Plain<Screen, true>, ExercisePlaneBlend),
      Refer(28, Plain<Lighten, false>, ExercisePlaneBlend),
      Refer(29, Plain<Darken, false>, ExercisePlaneBlend),
      Refer(30, ThresholdMasked, ExerciseMaskedBlend),
      Refer(31, ColorThresholdMasked, ExerciseColorMaskedBlend),
      Refer(47, UnderMask<Overlay, true>, ExerciseMaskedBlend),
      Refer(48, ColorUnderMask<Overlay, true>, ExerciseColorMaskedBlend),
      Refer(49, Plain<Overlay, true>, ExercisePlaneBlend),
      Refer(50, UnderMask<HardLight, true>, ExerciseMaskedBlend),
      Refer(51, ColorUnderMask<HardLight, true>, ExerciseColorMaskedBlend),
      Refer(52, Plain<HardLight, true>, ExercisePlaneBlend),
      Refer(56, WithOpacity<Multiply, false>, ExerciseOpacityBlend),
      Refer(57, WithOpacity<Screen, true>, ExerciseOpacityBlend),
      Refer(58, WithOpacity<Overlay, true>, ExerciseOpacityBlend),
      Refer(59, WithOpacity<HardLight, true>, ExerciseOpacityBlend),
      Refer(66, BurnPlanes, ExercisePlanesBlend),
      Refer(74, MultiplyPlanes, ExercisePlanesBlend),
      Refer(75, InvertMultiplyPlanes, ExercisePlanesBlend),
      Refer(96, ScreenShare, ExerciseShareBlend),
      Refer(97, MultiplyPlanesInvert, ExerciseInvertBlend),
      Refer(106, ColorWhereZero, ExerciseMaskFirstBlend),
  };
  return references;
}

}  // namespace vantrix::host
