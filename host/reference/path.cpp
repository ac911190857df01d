#include <map>

#include "host/exercise/exercises.h"
#include "host/fill_array.h"
#include "host/reference/reference.h"

namespace vantrix::host {
namespace {

// Everything that happens at one position of a row, from left to right.
struct Events {
  int64_t winding = 0;    // how the new path's winding number changes
  int64_t crossings = 0;  // how often the new path crosses the row
  int64_t edges = 0;      // how many settled spans begin or end
};

bool IsCovered(uint32_t operation, bool isNew, bool isOld) {
  switch (operation) {
    case kUnion:
      return isNew || isOld;
    case kSubtract:
      return isOld && !isNew;
    case kIntersect:
      return isNew && isOld;
    case kExclusiveOr:
      return isNew != isOld;
    default:
      return isOld;
  }
}

// Checks after every position where something happens
// whether the row is covered, and notes where that changes.
void FoldRow(uint32_t* row, uint32_t rowStride, uint32_t operation, bool byWinding) {
  std::map<uint32_t, Events> events;
  for (uint32_t i = 0; i < row[kEntryCount]; ++i) ++events[row[kFirstEntry + i]].edges;
  for (uint32_t i = 1; i <= row[kPendingCount]; ++i) {
    const uint32_t entry = row[rowStride - i];
    Events& here = events[entry >> 1];
    here.winding += (entry & kUpward) != 0 ? 1 : -1;
    ++here.crossings;
  }

  Events sum;
  bool wasCovered = false;
  uint32_t count = 0;
  for (const auto& [position, here] : events) {
    sum.winding += here.winding;
    sum.crossings += here.crossings;
    sum.edges += here.edges;
    const bool isNew = byWinding ? sum.winding != 0 : sum.crossings % 2 != 0;
    const bool isCovered = IsCovered(operation, isNew, sum.edges % 2 != 0);
    if (isCovered != wasCovered) row[kFirstEntry + count++] = position;
    wasCovered = isCovered;
  }
  row[kEntryCount] = count;
  row[kPendingCount] = 0;
}

// For arrays whose counts fit their rows and whose settled positions ascend.
void ApplyFillArrayOperation(FillArray* array, uint32_t operation, uint32_t nonZeroWinding) {
  const int64_t rows = int64_t{array->endRow} - array->firstRow;
  for (int64_t y = 0; y < rows; ++y) {
    uint32_t* const row = RowOf(array, static_cast<int32_t>(y));
    if (row[kPendingCount] != 0 || operation == kIntersect)
      FoldRow(row, static_cast<uint32_t>(array->rowStride), operation, nonZeroWinding != 0);
  }
}

}  // namespace

std::span<const Reference> PathReferences() {
  static const Reference references[] = {
      Refer(24, ApplyFillArrayOperation, ExerciseFillArray),
  };
  return references;
}

}  // namespace vantrix::host
