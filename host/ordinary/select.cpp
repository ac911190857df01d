#include <vector>

#include "host/ordinary/ordinary.h"
#include "suites/select/signatures.h"

namespace vantrix::host {
namespace {

// The rows do not overlap. Compilers that have to find that out look at whole planes, which do.
void SpreadToRow(uint8_t* __restrict row, uint8_t* __restrict above,
                 const uint8_t* __restrict below, int32_t width) {
  for (int32_t x = 0; x < width; ++x) {
    const uint8_t entry = row[x];
    row[x] = static_cast<uint8_t>(entry | ((above[x] | below[x]) & 128));
    above[x] = entry;
  }
}

void SpreadMark(uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes) {
  if (rows < 1 || width < 1) return;
  std::vector<uint8_t> above(static_cast<size_t>(width)), nothing(above);
  for (int32_t y = 0; y < rows; ++y, data += rowBytes)
    SpreadToRow(data, above.data(), y + 1 < rows ? data + rowBytes : nothing.data(), width);
}

// Walks one line at a time or, if lines are side by side, all of them one step at a time.
template <class T>
void Propagate(T* priority, T* value, int32_t lineCount, int32_t lineLength, intptr_t lineStep,
               intptr_t entryStep, T holds) {
  const auto step = [=](T* p, T* v) {
    const T d = p[-entryStep], carried = static_cast<T>(d - (d > 1));
    const bool isHeld = carried == holds || p[0] > carried;
    p[0] = isHeld ? p[0] : carried;
    v[0] = isHeld ? v[0] : v[-entryStep];
  };
  if (lineStep != 1) {
    for (int32_t i = 0; i < lineCount; ++i)
      for (int32_t j = 1; j < lineLength; ++j)
        step(priority + i * lineStep + j * entryStep, value + i * lineStep + j * entryStep);
    return;
  }
  for (int32_t j = 1; j < lineLength; ++j)
    for (int32_t i = 0; i < lineCount; ++i)
      step(priority + j * entryStep + i, value + j * entryStep + i);
}

void Propagate8(uint8_t* priority, uint8_t* value, int32_t lineCount, int32_t lineLength,
                int32_t lineStep, int32_t entryStep) {
  Propagate<uint8_t>(priority, value, lineCount, lineLength, lineStep, entryStep, 0);
}

// Whole groups of eight lines side by side are held back by a different value from the rest.
void Propagate16(uint16_t* priority, uint16_t* value, int32_t lineCount, int32_t lineLength,
                 int32_t lineStep, int32_t entryStep) {
  const int32_t lines = lineStep >> 1, entries = entryStep >> 1;
  const int32_t grouped = lines == 1 ? lineCount / 8 * 8 : 0;
  Propagate<uint16_t>(priority, value, grouped, lineLength, lines, entries, 32768);
  Propagate<uint16_t>(priority + grouped, value + grouped, lineCount - grouped, lineLength, lines,
                      entries, 0);
}

}  // namespace

std::span<const Ordinary> OrdinarySelection() {
  static const Ordinary routines[] = {Use(26, SpreadMark), Use(35, Propagate8),
                                      Use(73, Propagate16)};
  return routines;
}

}  // namespace vantrix::host
