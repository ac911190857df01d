// Bodies of marks.h, for the units that instantiate them.
#pragma once

#include "common/changed.h"
#include "common/far.h"
#include "common/rows.h"
#include "common/unroll.h"
#include "suites/select/in_order.h"
#include "suites/select/marks.h"

namespace vantrix {
namespace {

constexpr uint8_t kMark = 128;
// Rows that are taken together: each is loaded once for itself and its neighbours.
constexpr int kRowsAtOnce = 4;
// Columns that are taken together: the copy of the row above stays in the first-level cache.
constexpr int32_t kColumnsTogether = 4096;

template <class V, int kRows>
struct Entries {
  V above, rows[kRows], below;
};
template <class V, int kRows>
struct MarkedEntries {
  V before[kRows], after[kRows], isNew[kRows];
};

// Rows that are read together, and written if an entry changes. `above`
// is a copy of the row above from before it was marked. When the rows
// are written, the last of them, as it was read, replaces that copy.
template <int kRows, bool kIsFar>
struct MarkedRows {
  using Sample = uint8_t;
  static constexpr bool kIsRead = true;
  Target first;
  uint8_t* above;
  bool hasBelow;

  template <class Place>
  VX_INLINE auto At(Place place) const {
    Entries<typename Place::Register, kRows> entries{place.LoadFrom(above), {}, {}};
    Repeat<kRows>([&](int i) VX_INLINED { entries.rows[i] = place.LoadFrom(Row(i)); });
    if constexpr (kIsFar)
      Repeat<kRows>([&](int i) VX_INLINED { PrefetchLater(Row(kRows + 1 + i) + place.x); });
    if (hasBelow) entries.below = place.LoadFrom(Row(kRows));
    return entries;
  }
  template <class Place, class V>
  VX_INLINE void Write(Place place, const MarkedEntries<V, kRows>& entries) const {
    Repeat<kRows>([&](int i) VX_INLINED {
      StoreChanged(place, Row(i), entries.isNew[i], entries.before[i], entries.after[i]);
    });
    place.StoreTo(above, entries.before[kRows - 1]);
  }
  template <int kBytes>
  VX_LANE intptr_t BoundaryAfter(intptr_t x) const {
    return first.BoundaryAfter<kBytes>(x);
  }

 private:
  VX_LANE uint8_t* Row(int i) const { return first.row + i * intptr_t{first.stride}; }
};

// An entry takes the marks of the rows above and below, as they were.
struct SpreadMarks {
  template <class V, int kRows>
  VX_INLINE MarkedEntries<V, kRows> operator()(const Entries<V, kRows>& entries) const {
    MarkedEntries<V, kRows> marked;
    Repeat<kRows>([&](int i) VX_INLINED {
      const V above = i == 0 ? entries.above : entries.rows[i - 1];
      const V below = i + 1 < kRows ? entries.rows[i + 1] : entries.below;
      marked.before[i] = entries.rows[i];
      marked.isNew[i] = (above | below) & ~entries.rows[i] & kMark;
      marked.after[i] = entries.rows[i] | marked.isNew[i];
    });
    return marked;
  }
};

template <class Walk>
VX_INLINE void SpreadInColumns(Walk walk, uint8_t* row, int32_t rows, int32_t rowBytes,
                               uint8_t* above, bool isFar) {
  const auto spread = [&]<int kRows, bool kIsFar>(MarkedRows<kRows, kIsFar>*) VX_INLINED {
    ApplyToRow(walk, SpreadMarks{},
               MarkedRows<kRows, kIsFar>{{row, rowBytes}, above, /*hasBelow=*/rows > kRows});
    row += kRows * intptr_t{rowBytes};
  };
  using OneRow = MarkedRows<1, false>;
  using Rows = MarkedRows<kRowsAtOnce, false>;
  using FarRows = MarkedRows<kRowsAtOnce, kIsWide<Block<typename Walk::Register>>>;
  if (isFar)
    for (; rows >= kRowsAtOnce; rows -= kRowsAtOnce) spread(static_cast<FarRows*>(nullptr));
  for (; rows >= kRowsAtOnce; rows -= kRowsAtOnce) spread(static_cast<Rows*>(nullptr));
  for (; rows > 0; --rows) spread(static_cast<OneRow*>(nullptr));
}

}  // namespace

template <class Form>
void SelectSpreadMark8(uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes) {
  if (rows < 2) return;
  if (Magnitude(rowBytes) < width) return SpreadMarksInOrder(data, rows, width, rowBytes);
  const bool isFar = AreFar(rows, width);
  for (; width > 0; width -= kColumnsTogether, data += kColumnsTogether) {
    const int32_t columns = width < kColumnsTogether ? width : kColumnsTogether;
    uint8_t above[kColumnsTogether];
    __builtin_memset(above, 0, static_cast<size_t>(columns));
    // Rows of 16 to 31 entries are stored in whole groups of 16: as ends they would be stored
    // singly.
    WithBlocks<Form, uint8_t, 2, 8>(columns, [&](auto walk) VX_INLINED {
      SpreadInColumns(walk, data, rows, rowBytes, above, isFar);
    });
  }
}

}  // namespace vantrix
