#include "host/bench/crossings.h"

#include <algorithm>
#include <vector>

#include "host/fill_array.h"

namespace vantrix::host {

void FillRows(FillArray* array, uint32_t crossings, bool isScattered) {
  constexpr uint32_t kRange = 1 << 22;
  Choices random(uint64_t{1});
  std::vector<uint32_t> positions(size_t{crossings} * 2);
  for (uint32_t& position : positions) position = kRange + random.Below(kRange);
  for (int32_t y = 0; y < array->endRow - array->firstRow; ++y) {
    for (uint32_t& position : positions)
      position = isScattered ? random.Below(kRange) : position + random.Below(3) - 1;
    uint32_t* const row = RowOf(array, y);
    row[kEntryCount] = crossings;
    row[kPendingCount] = 0;
    std::copy_n(positions.begin(), crossings, row + kFirstEntry);
    std::sort(row + kFirstEntry, row + kFirstEntry + crossings);
    for (uint32_t i = 0; i < crossings; ++i)
      AddCrossing(array, y, positions[2 * size_t{crossings} - 1 - i], (crossings - 1 - i) % 2 != 0);
  }
}

void FoldOutline(Routine routine, Scene& scene) {
  Shape shape = scene.ChooseShape();
  constexpr int32_t kMany = 100, kUsual = 16;
  if (shape.columns > kMany) shape = {shape.rows * (shape.columns / kUsual), kUsual};
  const int32_t stride = 2 * shape.columns + 2;
  const auto words = static_cast<int32_t>(FillArrayWords(shape.rows, stride, false));
  const PlaneView block = scene.Run(4 * words, 4);
  FillArray* const array =
      StartFillArray(reinterpret_cast<uint32_t*>(block.first), 0, shape.rows, stride);
  FillRows(array, static_cast<uint32_t>(shape.columns), false);
  scene.Call<FillArrayRoutine>(routine, array, uint32_t{kUnion}, 1u);
  for (int32_t y = 0; y < shape.rows; ++y) ClearBehindEntries(RowOf(array, y), stride);
  uint32_t* const calc = RowOf(array, shape.rows);
  std::fill(calc, calc + stride, 0);
}

}  // namespace vantrix::host
