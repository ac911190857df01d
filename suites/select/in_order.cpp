#include "suites/select/in_order.h"

#include "common/overlap.h"

namespace vantrix {

void SpreadMarksInOrder(uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes) {
  const auto mark = [=](int32_t row, int32_t from) {
    for (int32_t x = 0; x < width; ++x) {
      uint8_t& entry = data[intptr_t{row} * rowBytes + x];
      if (data[intptr_t{from} * rowBytes + x] >= 128 && entry < 128) entry += 128;
    }
  };
  for (int32_t row = 0; row < rows - 1; ++row) mark(row, row + 1);
  for (int32_t row = rows - 1; row > 0; --row) mark(row, row - 1);
}

template <class T>
bool EntriesAreApart(const T* priority, const T* value, int32_t lineCount, int32_t lineLength,
                     int32_t lineStep, int32_t entryStep) {
  struct Walk {
    int64_t step, count;
    int64_t Reach() const { return (count - 1) * Magnitude(step); }
  };
  const Walk lines{lineStep, lineCount}, entries{entryStep, lineLength};
  const bool linesAreInner = lines.Reach() < entries.Reach();
  const Walk inner = linesAreInner ? lines : entries, outer = linesAreInner ? entries : lines;
  if (inner.step == 0 && inner.count > 1) return false;
  constexpr int64_t kSize = sizeof(T);
  const int64_t bytes = (inner.Reach() + 1) * kSize, stride = outer.step * kSize;
  if (outer.count > 1 && Magnitude(stride) < bytes) return false;
  const auto areaOf = [=](const T* first) {
    return PlaneArea{first - (inner.step < 0 ? inner.Reach() : 0), static_cast<intptr_t>(stride),
                     outer.count, bytes};
  };
  return !Overlap(areaOf(priority), areaOf(value));
}

template <class T>
void PropagateInOrder(T* priority, T* value, int32_t lineCount, int32_t lineLength,
                      int32_t lineStep, int32_t entryStep, T holds) {
  for (int32_t line = 0; line < lineCount; ++line) {
    for (int32_t i = 1; i < lineLength; ++i) {
      const intptr_t at = intptr_t{line} * lineStep + intptr_t{i} * entryStep;
      const T before = priority[at - entryStep], received = value[at - entryStep];
      const auto carried = static_cast<T>(before - (before > 1));
      if (carried == holds || priority[at] > carried) continue;
      if (value[at] != received) value[at] = received;
      if (priority[at] != carried) priority[at] = carried;
    }
  }
}

template bool EntriesAreApart(const uint8_t*, const uint8_t*, int32_t, int32_t, int32_t, int32_t);
template bool EntriesAreApart(const uint16_t*, const uint16_t*, int32_t, int32_t, int32_t, int32_t);
template void PropagateInOrder(uint8_t*, uint8_t*, int32_t, int32_t, int32_t, int32_t, uint8_t);
template void PropagateInOrder(uint16_t*, uint16_t*, int32_t, int32_t, int32_t, int32_t, uint16_t);

}  // namespace vantrix
