// Bodies of threshold.h, for the units that instantiate them.
#pragma once

#include "common/masked.h"
#include "common/rows.h"
#include "suites/blend/threshold.h"

namespace vantrix {

struct WhereLight {
  template <class V>
  VX_INLINE auto operator()(V m) const {
    return IsLight(m);
  }
};
struct WhereZero {
  template <class V>
  VX_INLINE auto operator()(V m) const {
    return m == 0;
  }
};

// Sample by sample, writing only those selected. An unselected one is stored aside:
// quicker than a branch, which a varied mask would mispredict.
template <class Selects, class Source>
VX_INLINE void CopySingly(intptr_t count, Selects selects, Target to, Source source, Plane mask) {
  using One = Block<Lanes<uint8_t, 1>>;
  uint8_t aside;
  for (intptr_t x = 0; x < count; ++x) {
    uint8_t* const place = selects(mask.At(One{x}))[0] ? to.row + x : &aside;
    *place = source.At(One{x})[0];
  }
}

template <class Place, class Selects, class Source>
VX_INLINE void CopyLanes(Place lanes, Selects selects, Target to, Source source, Plane mask) {
  lanes.StoreWhere(selects(mask.At(lanes)), to.row, source.At(lanes));
}

// A row of fewer than 16 samples, writing only those selected: none or all of them
// mostly, as masks go, else one by one.
template <class Selects, class Source>
VX_INLINE void CopyShort(intptr_t count, Selects selects, Target to, Source source, Plane mask) {
  using V = Lanes<uint8_t, 16>;
  if constexpr (kHasMasks)
    return CopyLanes(SomeLanes<V>::FirstAfter(0, count), selects, to, source, mask);
  if (count < 8) return CopySingly(count, selects, to, source, mask);
  const Ends<V, 8> ends{count};
  const uint32_t selected = SetBytes(selects(mask.At(ends)));
  if (selected == 0xFFFF) return to.Write(ends, source.At(ends));
  for (uint32_t rest = selected; rest != 0; rest &= rest - 1) {
    const intptr_t lane = __builtin_ctz(rest);
    const intptr_t x = lane < 8 ? lane : count - 16 + lane;
    to.row[x] = source.At(Block<Lanes<uint8_t, 1>>{x})[0];
  }
}

template <class Selects>
struct CopySelected {
  Selects selects;
  template <class V>
  VX_INLINE V operator()(V d, V s, V m) const {
    return selects(m) ? s : d;
  }
};

// A row of at least a block, in whose blocks every sample is written.
inline constexpr intptr_t kWrittenBlock = 16;
template <class Form, class Selects, class Source>
VX_INLINE void CopyLong(intptr_t count, Selects selects, Target to, Source source, Plane mask) {
  const auto copyShort = [=](intptr_t x, intptr_t samples) VX_INLINED {
    CopyShort(samples, selects, to.From(x), source.From(x), mask.From(x));
  };
  const intptr_t head = -reinterpret_cast<uintptr_t>(to.row) & (kWrittenBlock - 1);
  const intptr_t end = head + ((count - head) & -kWrittenBlock);
  if (head > 0) {
    if constexpr (kHasMasks)
      CopyLanes(SomeLanes<Lanes<uint8_t, 16>>::LastBefore(head, head), selects, to, source, mask);
    else
      copyShort(0, head);
  }
  const CopySelected<Selects> rule{selects};
  WithWholeBlocks<uint8_t, Form::kBytes>(head, end, [=]<class V>(Blocks<V> blocks) VX_INLINED {
    // Registers of one block end where the blocks do: none reaches back.
    if constexpr (sizeof(V) == kWrittenBlock)
      blocks.ForEach([=](auto block) VX_INLINED { ApplyAt(block, rule, to, source, mask); });
    else
      ApplyToRow(blocks, rule, to, source, mask);
  });
  if (end < count) copyShort(end, count - end);
}

template <class Form, class Selects, class Source>
VX_INLINE void CopyWhere(int32_t rows, int32_t columns, Selects selects, Target destination,
                         Source source, Plane mask) {
  if (columns < 1) return;
  const auto inEachRow = [=](auto work) VX_INLINED {
    ForEachRow(
        rows, [=](auto... row) VX_INLINED { work(columns, selects, row...); }, destination, source,
        mask);
  };
  if constexpr (Form::kBytes == 1)
    inEachRow([](auto... row) VX_INLINED { CopySingly(row...); });
  else if (columns < kWrittenBlock)
    inEachRow([](auto... row) VX_INLINED { CopyShort(row...); });
  else
    inEachRow([](auto... row) VX_INLINED { CopyLong<Form>(row...); });
}

template <class Form>
void BlendThresholdMasked8(const uint8_t* source, uint8_t* destination, const uint8_t* mask,
                           int32_t rows, int32_t columns, int32_t sourceStride,
                           int32_t destinationStride, int32_t maskStride) {
  CopyWhere<Form>(rows, columns, WhereLight{}, Target{destination, destinationStride},
                  Plane{source, sourceStride}, Plane{mask, maskStride});
}

template <class Form>
void BlendColorThresholdMasked8(uint32_t color, uint8_t* destination, const uint8_t* mask,
                                int32_t rows, int32_t columns, int32_t destinationStride,
                                int32_t maskStride) {
  CopyWhere<Form>(rows, columns, WhereLight{}, Target{destination, destinationStride},
                  Constant{static_cast<uint8_t>(color)}, Plane{mask, maskStride});
}

template <class Form>
void BlendColorWhereZero8(const uint8_t* mask, uint8_t* destination, int32_t rows, int32_t columns,
                          int32_t maskStride, int32_t destinationStride, uint32_t color) {
  CopyWhere<Form>(rows, columns, WhereZero{}, Target{destination, destinationStride},
                  Constant{static_cast<uint8_t>(color)}, Plane{mask, maskStride});
}

}  // namespace vantrix
