#include "common/overlap.h"

namespace vantrix {

bool OverlapsInPart(Plane plane, Target to, int32_t rows, int32_t columns) {
  const auto apart = static_cast<int64_t>(reinterpret_cast<uintptr_t>(plane.row) -
                                          reinterpret_cast<uintptr_t>(to.row));
  const int64_t drift = int64_t{plane.stride} - to.stride;
  const auto inRow = [&](int64_t row) {
    const int64_t offset = apart + row * drift;
    return offset != 0 && offset < columns && -offset < columns;
  };
  if (drift == 0) return inRow(0);
  // The rows nearest to where the two planes meet.
  const int64_t last = int64_t{rows} - 1;
  const int64_t meeting = -apart / drift;
  const int64_t nearest = meeting < 0 ? 0 : meeting > last ? last : meeting;
  return inRow(nearest) || (nearest > 0 && inRow(nearest - 1)) ||
         (nearest < last && inRow(nearest + 1));
}

}  // namespace vantrix
