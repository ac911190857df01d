#include <algorithm>
#include <set>

#include "host/exercise/exercises.h"
#include "host/fill_array.h"

namespace vantrix::host {
namespace {

// Returns a position: anywhere if `range` is large, else
// mostly below it, so that positions coincide.
uint32_t Position(Choices& choose, uint32_t range) {
  constexpr uint32_t kLast = 0x7FFFFFFF;
  if (range > 0xFFFF) return (choose.Below(65536) << 16 | choose.Below(65536)) & kLast;
  return choose.OneIn(64) ? kLast - choose.Below(3) : choose.Below(range);
}

// Returns a row near 0, or at one of the ends of what 32 bits hold.
int32_t FirstRow(Choices& choose, int32_t rows) {
  switch (choose.Below(4)) {
    case 0:
      return INT32_MIN - std::min(rows, 0);
    case 1:
      return INT32_MAX - std::max(rows, 0);
    default:
      return choose.Between(-3, 3);
  }
}

// Fills a row with at most as many entries as fit. Each kind comes in pairs, except in an odd row
// now and then, which stays covered to its end.
void FillRow(Choices& choose, FillArray* array, int32_t row, uint32_t room, uint32_t range) {
  uint32_t* const record = RowOf(array, row);
  record[kEntryCount] = record[kPendingCount] = 0;
  const bool isOdd = choose.OneIn(32);
  const uint32_t pending = choose.OneIn(8) ? 0 : choose.Below(room + 1);
  for (uint32_t i = 0; i < (isOdd ? pending : pending & ~1u); ++i)
    AddCrossing(array, row, Position(choose, range), (choose.OneIn(16) ? choose.Below(2) : i % 2));
  std::set<uint32_t> edges;
  const uint32_t settled = choose.OneIn(4) ? 0 : choose.Below(room - record[kPendingCount] + 1);
  for (uint32_t i = 0; i < settled; ++i) edges.insert(Position(choose, range));
  if (edges.size() % 2 != 0 && !isOdd) edges.erase(edges.begin());
  std::copy(edges.begin(), edges.end(), record + kFirstEntry);
  record[kEntryCount] = static_cast<uint32_t>(edges.size());
}

}  // namespace

// Rows have room for as many entries as the shape has columns. What a
// routine leaves past the end of the entries of a row that had pending
// ones is not compared, nor is the calc buffer except its last two words.
void ExerciseFillArray(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  Choices& choose = scene.Choose();
  const auto room = static_cast<uint32_t>(std::clamp(shape.columns, 0, 1000));
  const auto rowStride = static_cast<int32_t>(room + 2);
  const auto words = static_cast<int32_t>(FillArrayWords(shape.rows, rowStride, false));
  const PlaneView block = scene.Run(4 * words, 4);
  auto* const first = reinterpret_cast<uint32_t*>(block.first);

  FillArray* const array =
      StartFillArray(first, FirstRow(choose, shape.rows), shape.rows, rowStride);
  constexpr uint32_t kRanges[] = {1, 3, 20, 200, 3000, 1 << 20};
  const uint32_t range = kRanges[choose.Below(6)];
  std::vector<uint32_t*> pending;
  for (int32_t y = 0; y < shape.rows; ++y) {
    FillRow(choose, array, y, room, range);
    if (RowOf(array, y)[kPendingCount] != 0) pending.push_back(RowOf(array, y));
  }

  constexpr uint32_t kOperations[] = {kUnion, kSubtract, kIntersect, kExclusiveOr, 4, 0xFFFFFFFF};
  constexpr uint32_t kFlags[] = {0, 1, 0x100, 0x80000000};
  scene.Call<FillArrayRoutine>(routine, array, kOperations[choose.Below(6)],
                               kFlags[choose.Below(4)]);

  for (uint32_t* const row : pending) ClearBehindEntries(row, rowStride);
  uint32_t* const calc = RowOf(array, std::max(shape.rows, 0));
  std::fill(calc, calc + room, 0);
}

}  // namespace vantrix::host
