// Bodies of marks.h, for the units that instantiate them.
#pragma once

#include "common/rows.h"
#include "suites/select/marks.h"

namespace vantrix {
namespace {

constexpr uint8_t kMark = 128;
// Columns that are walked together, so that what a row was before stays in the first-level
// cache.
constexpr int32_t kColumnsTogether = 4096;

// An entry takes the marks of the rows about it; the entry as it was is set aside for the
// row below.
struct SpreadMark {
  static constexpr int kFewestInRegister = 8;  // halves stored apart are slow to reload
  template <class V>
  VX_INLINE Pair<V> operator()(Pair<V> entryAndAbove, V below) const {
    const auto [entry, above] = entryAndAbove;
    return {entry | ((above | below) & kMark), entry};
  }
};

}  // namespace

template <class Form>
void SelectSpreadMark8(uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes) {
  if (rows < 2) return;
  for (; width > 0; width -= kColumnsTogether, data += kColumnsTogether) {
    const int32_t columns = width < kColumnsTogether ? width : kColumnsTogether;
    uint8_t above[kColumnsTogether];
    __builtin_memset(above, 0, static_cast<size_t>(columns));
    uint8_t* row = data;
    const auto spread = [&](auto below) VX_INLINED {
      BlendRows<Form>(1, columns, TwoTargets{{row, 0}, {above, 0}}, SpreadMark{}, below);
    };
    for (int32_t left = rows; left > 1; --left, row += rowBytes) spread(Plane{row + rowBytes, 0});
    spread(Constant{0});
  }
}

}  // namespace vantrix
