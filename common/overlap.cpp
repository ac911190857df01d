#include "common/overlap.h"

#include <numeric>

namespace vantrix {

bool SomeRowsOverlap(int64_t apart, int64_t drift, int64_t bytes, int64_t targetBytes,
                     int32_t rows) {
  const auto inRow = [=](int64_t row) {
    const int64_t offset = apart + row * drift;
    return offset < targetBytes && -offset < bytes && !(offset == 0 && bytes == targetBytes);
  };
  if (drift == 0) return inRow(0);
  // The rows nearest to where the two planes meet, or coincide and leave one another again.
  const int64_t last = int64_t{rows} - 1;
  const int64_t meeting = -apart / drift;
  const int64_t nearest = meeting < 0 ? 0 : meeting > last ? last : meeting;
  return inRow(nearest) || (nearest > 0 && inRow(nearest - 1)) ||
         (nearest < last && inRow(nearest + 1));
}

// Rows of either plane are whole multiples of the strides' greatest common divisor apart. Modulo
// that divisor each plane is one range of bytes.
bool ColumnsAreApart(const void* a, intptr_t aStride, int64_t aBytes, const void* b,
                     intptr_t bStride, int64_t bBytes) {
  const int64_t step = std::gcd(int64_t{aStride}, int64_t{bStride});
  if (aBytes > step || bBytes > step) return false;
  const int64_t apart = (AddressOf(b) - AddressOf(a)) % step;
  const int64_t column = apart < 0 ? apart + step : apart;
  return column >= aBytes && column + bBytes <= step;
}

// Called only if the ranges of addresses cross.
bool AreasOverlap(const void* a, intptr_t aStride, int64_t aRows, int64_t aBytes, const void* b,
                  intptr_t bStride, int64_t bRows, int64_t bBytes) {
  // A single row fits any stride.
  if (aRows == 1) aStride = bStride;
  if (bRows == 1) bStride = aStride;
  if (ColumnsAreApart(a, aStride, aBytes, b, bStride, bBytes)) return false;
  if (aStride != bStride && aStride != -bStride) return true;
  // With equal strides every row of one lies at the same distance from a row of the other.
  const int64_t stride = Magnitude(aStride);
  if (aBytes > stride || bBytes > stride) return true;
  const auto apart = static_cast<int64_t>(PlaneArea{b, bStride, bRows, bBytes}.Low() -
                                          PlaneArea{a, aStride, aRows, aBytes}.Low());
  const int64_t rowsBetween = apart / stride - (apart % stride < 0);
  const int64_t column = apart - rowsBetween * stride;
  // Row i of b begins in row i + rowsBetween of a and may end in the next.
  const auto areBoth = [&](int64_t between) { return between < aRows && -between < bRows; };
  return (column < aBytes && areBoth(rowsBetween)) ||
         (column + bBytes > stride && areBoth(rowsBetween + 1));
}

}  // namespace vantrix
