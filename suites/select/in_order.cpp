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
bool EntriesAreApart(const T* priority, const T* value, Steps lines, Steps entries) {
  const auto reachOf = [](Steps steps) { return (steps.count - 1) * Magnitude(steps.step); };
  const bool linesAreInner = reachOf(lines) < reachOf(entries);
  const Steps inner = linesAreInner ? lines : entries, outer = linesAreInner ? entries : lines;
  if (inner.step == 0 && inner.count > 1) return false;
  constexpr int64_t kSize = sizeof(T);
  const int64_t bytes = (reachOf(inner) + 1) * kSize, stride = outer.step * kSize;
  if (outer.count > 1 && Magnitude(stride) < bytes) return false;
  const auto areaOf = [=](const T* first) {
    return PlaneArea{first - (inner.step < 0 ? reachOf(inner) : 0), static_cast<intptr_t>(stride),
                     outer.count, bytes};
  };
  return !Overlap(areaOf(priority), areaOf(value));
}

template <class T>
void PropagateInOrder(Lines<T> lines, T holds) {
  for (; lines.count > 0; lines = lines.After(1)) {
    T *priority = lines.priority, *value = lines.value;
    for (int32_t i = 1; i < lines.length; ++i) {
      const auto carried = static_cast<T>(*priority - (*priority > 1));
      const T received = *value;
      priority += lines.entryStep;
      value += lines.entryStep;
      if (carried == holds || *priority > carried) continue;
      if (*value != received) *value = received;
      if (*priority != carried) *priority = carried;
    }
  }
}

template bool EntriesAreApart(const uint8_t*, const uint8_t*, Steps, Steps);
template bool EntriesAreApart(const uint16_t*, const uint16_t*, Steps, Steps);
template void PropagateInOrder(Lines<uint8_t>, uint8_t);
template void PropagateInOrder(Lines<uint16_t>, uint16_t);

}  // namespace vantrix
