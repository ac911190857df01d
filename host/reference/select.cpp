#include <cstdlib>
#include <vector>

#include "host/exercise/exercises.h"
#include "host/reference/reference.h"
#include "host/reference/samples.h"
#include "suites/select/signatures.h"

namespace vantrix::host {
namespace {

// For rows that share entries: each row takes the marks of the row below it; then, from the last
// row up, each takes those of the row above it.
void SpreadMarkInPasses(uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes) {
  for (int32_t y = 0; y + 1 < rows; ++y)
    for (int32_t x = 0; x < width; ++x)
      if (At(data, y + 1, x, rowBytes) >= 128) At(data, y, x, rowBytes) |= 128;
  for (int32_t y = rows - 1; y >= 1; --y)
    for (int32_t x = 0; x < width; ++x)
      if (At(data, y - 1, x, rowBytes) >= 128) At(data, y, x, rowBytes) |= 128;
}

void SpreadMark(uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes) {
  if (rows < 1 || width < 1) return;
  if (std::abs(int64_t{rowBytes}) < width) return SpreadMarkInPasses(data, rows, width, rowBytes);
  std::vector<uint8_t> marked;
  ForEachSample(rows, width, [&](int32_t y, int32_t x) {
    bool isMarked = At(data, y, x, rowBytes) >= 128;
    if (y > 0) isMarked |= At(data, y - 1, x, rowBytes) >= 128;
    if (y < rows - 1) isMarked |= At(data, y + 1, x, rowBytes) >= 128;
    marked.push_back(isMarked);
  });
  ForEachSample(rows, width, [&](int32_t y, int32_t x) {
    uint8_t& entry = At(data, y, x, rowBytes);
    if (marked[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)])
      entry |= 128;
  });
}

// Returns the class of the set of entries, of any width.
int32_t Classify8(const uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes) {
  bool allZero = true, allBelow = true, allAbove = true, allFull = true;
  ForEachSample(rows, width, [&](int32_t y, int32_t x) {
    const uint8_t entry = At(data, y, x, rowBytes);
    allZero &= entry == 0;
    allBelow &= entry < 128;
    allAbove &= entry >= 128;
    allFull &= entry == 255;
  });
  if (allZero) return MaskClass::kEmpty;
  if (allFull) return MaskClass::kFull;
  if (allBelow) return MaskClass::kBelowHalf;
  return allAbove ? MaskClass::kFromHalf : MaskClass::kMixed;
}

// Classifies narrow masks by their set of entries, and others by what is combined in eight lanes.
int32_t Classify16(const uint16_t* data, int32_t rows, int32_t width, int32_t rowBytes) {
  const int32_t step = rowBytes & ~1;
  if (width < 8) {
    bool allZero = true, allBelow = true, allAbove = true, allFull = true;
    ForEachSample(rows, width, [&](int32_t y, int32_t x) {
      const uint16_t entry = At(data, y, x, step);
      allZero &= entry == 0;
      allBelow &= entry < 16384;
      allAbove &= entry >= 16384;
      allFull &= entry == 32768;
    });
    if (allZero) return MaskClass::kEmpty;
    if (allFull) return MaskClass::kFull;
    if (allBelow) return MaskClass::kBelowHalf;
    return allAbove ? MaskClass::kFromHalf : MaskClass::kMixed;
  }
  uint16_t any[8] = {}, all[8];
  for (uint16_t& lane : all) lane = 0xFFFF;
  const auto countBelow = [](const uint16_t(&lanes)[8]) {
    int count = 0;
    for (const uint16_t lane : lanes) count += static_cast<int16_t>(lane) < 16384;
    return count;
  };
  for (int32_t y = 0; y < rows; ++y) {
    const uint16_t* const row = &At(data, y, 0, step);
    const auto foldGroup = [&](int32_t first) {
      for (int32_t k = 0; k < 8; ++k) {
        any[k] |= row[first + k];
        all[k] &= row[first + k];
      }
    };
    const auto past = static_cast<int32_t>(reinterpret_cast<uintptr_t>(row) % 16);
    const int32_t h = past == 0 ? 0 : (16 - past) / 2;
    const int32_t t = (width - h) % 8;
    if (past != 0) foldGroup(0);
    for (int32_t first = h; first <= width - t - 8; first += 8) foldGroup(first);
    if (t > 0) foldGroup(width - 8);
    if (countBelow(any) < 8 && countBelow(all) > 0) return MaskClass::kMixed;
  }
  const auto eachIs = [](const uint16_t(&lanes)[8], uint16_t value) {
    for (const uint16_t lane : lanes)
      if (lane != value) return false;
    return true;
  };
  if (eachIs(any, 0)) return MaskClass::kEmpty;
  if (eachIs(all, 32768)) return MaskClass::kFull;
  const int anyBelow = countBelow(any), allBelow = countBelow(all);
  if (anyBelow == 0) return allBelow == 0 ? MaskClass::kFromHalf : MaskClass::kMixed;
  return anyBelow == 8 && allBelow == 8 ? MaskClass::kBelowHalf : MaskClass::kMixed;
}

// Walks one line, one entry at a time. `holds` is the carried priority that holds an entry back.
template <class T>
void WalkLine(T* priority, T* value, int32_t length, intptr_t step, T holds) {
  for (int32_t j = 1; j < length; ++j) {
    const T d = priority[(j - 1) * step], v = value[(j - 1) * step];
    const T carried = d > 1 ? static_cast<T>(d - 1) : d;
    if (carried == holds || priority[j * step] > carried) continue;
    value[j * step] = v;
    priority[j * step] = carried;
  }
}

void Propagate8(uint8_t* priority, uint8_t* value, int32_t lineCount, int32_t lineLength,
                int32_t lineStep, int32_t entryStep) {
  for (int32_t i = 0; i < lineCount; ++i)
    WalkLine<uint8_t>(priority + intptr_t{i} * lineStep, value + intptr_t{i} * lineStep, lineLength,
                      entryStep, 0);
}

void Propagate16(uint16_t* priority, uint16_t* value, int32_t lineCount, int32_t lineLength,
                 int32_t lineStep, int32_t entryStep) {
  const int32_t lines = lineStep >> 1, entries = entryStep >> 1;
  const int32_t grouped = lines == 1 ? lineCount - lineCount % 8 : 0;
  for (int32_t i = 0; i < lineCount; ++i)
    WalkLine<uint16_t>(priority + intptr_t{i} * lines, value + intptr_t{i} * lines, lineLength,
                       entries, i < grouped ? 32768 : 0);
}

}  // namespace

std::span<const Reference> SelectReferences() {
  static const Reference references[] = {
      Refer(26, SpreadMark, ExerciseSpreadMark), Refer(33, Classify8, ExerciseClassify8),
      Refer(35, Propagate8, ExercisePropagate8), Refer(73, Propagate16, ExercisePropagate16),
      Refer(75, Classify16, ExerciseClassify16),
  };
  return references;
}

}  // namespace vantrix::host
