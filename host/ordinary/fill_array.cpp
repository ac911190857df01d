// Folds with std::sort, and a merge with a branch at each step.
#include <algorithm>
#include <cstring>

#include "host/ordinary/ordinary.h"
#include "suites/path/signatures.h"

namespace vantrix::host {
namespace {

// By operation: bit s says whether state s is covered. A state
// is 1 inside the new shape plus 2 inside the old spans.
constexpr uint8_t kCovered[] = {0b1110, 0b0100, 0b1000, 0b0110};

void FoldRow(uint32_t* row, uint32_t stride, uint32_t operation, bool byWinding, uint32_t* calc) {
  uint32_t* const list = row + stride - std::min(row[kPendingCount], stride - 2);
  std::sort(list, row + stride);
  uint32_t* end = list;
  if (byWinding) {
    int32_t winding = 0;
    for (const uint32_t* entry = list; entry < row + stride; ++entry) {
      const bool wasInside = winding != 0;
      winding += (*entry & kUpward) != 0 ? 1 : -1;
      if ((winding != 0) != wasInside) *end++ = *entry >> 1;
    }
  } else {
    for (; end < row + stride; ++end) *end >>= 1;
  }
  uint32_t* kept = list;
  for (const uint32_t* run = list; run < end;) {
    const uint32_t* next = run;
    while (next < end && *next == *run) ++next;
    if ((next - run) % 2 != 0) *kept++ = *run;
    run = next;
  }

  const uint32_t *a = list, *b = row + kFirstEntry;
  const uint32_t* const endB = b + std::min(row[kEntryCount], stride - 2);
  uint32_t *to = calc, *const endTo = calc + stride - 2;
  uint32_t state = 0, isCovered = 0;
  const auto take = [&](uint32_t value, uint32_t toggle) {
    state ^= toggle;
    const uint32_t now = kCovered[operation] >> state & 1;
    if (now == isCovered) return true;
    isCovered = now;
    if (to == endTo) return false;
    *to++ = value;
    return true;
  };
  bool fits = true;
  while (fits && a < kept && b < endB) {
    if (*a < *b)
      fits = take(*a++, 1);
    else if (*b < *a)
      fits = take(*b++, 2);
    else
      fits = take(*a++, 3), ++b;
  }
  while (fits && b < endB) fits = take(*b++, 2);
  while (fits && a < kept) fits = take(*a++, 1);
  row[kPendingCount] = 0;
  row[kEntryCount] = static_cast<uint32_t>(to - calc);
  std::memcpy(row + kFirstEntry, calc, 4 * static_cast<size_t>(to - calc));
}

void Fold(FillArray* array, uint32_t operation, uint32_t nonZeroWinding) {
  const int32_t rows = array->endRow - array->firstRow;
  const auto stride = static_cast<uint32_t>(array->rowStride);
  auto* const first = reinterpret_cast<uint32_t*>(array + 1);
  uint32_t* const calc = first + intptr_t{rows} * stride;
  for (uint32_t* row = first; row < calc; row += stride) {
    if (row[kPendingCount] != 0)
      FoldRow(row, stride, operation, nonZeroWinding != 0, calc);
    else if (operation == kIntersect)
      row[kEntryCount] = 0;
  }
}

}  // namespace

std::span<const Ordinary> OrdinaryPaths() {
  static const Ordinary routines[] = {Use(24, Fold)};
  return routines;
}

}  // namespace vantrix::host
