// Bodies of threshold.h, for the units that instantiate them.
#pragma once

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
  uint8_t aside;
  Singly<uint8_t>{count}.ForEach([&](auto sample) VX_INLINED {
    uint8_t* const place = selects(mask.At(sample))[0] ? to.row + sample.x : &aside;
    *place = source.At(sample)[0];
  });
}

// A row of fewer than 16 samples, writing only those selected: none or all of them
// mostly, as masks go, else one by one.
template <class Selects, class Source>
VX_INLINE void CopyShort(intptr_t count, Selects selects, Target to, Source source, Plane mask) {
  if (count < 8) return CopySingly(count, selects, to, source, mask);
  const Ends<Lanes<uint8_t, 16>, 8> ends{count};
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

template <class Form, class Selects, class Source>
VX_INLINE void CopyWhere(int32_t rows, int32_t columns, Selects selects, Target destination,
                         Source source, Plane mask) {
  constexpr intptr_t kBlock = 16;  // in whose blocks every sample is written
  const intptr_t count = columns;
  const auto row = [=](Target to, Source s, Plane m) VX_INLINED {
    if (Form::kBytes == 1) return CopySingly(count, selects, to, s, m);
    const auto copyShort = [=](intptr_t x, intptr_t samples) VX_INLINED {
      CopyShort(samples, selects, to.From(x), s.From(x), m.From(x));
    };
    const intptr_t head = -reinterpret_cast<uintptr_t>(to.row) & (kBlock - 1);
    if (count < kBlock) return copyShort(0, count);
    copyShort(0, head);
    const intptr_t inBlocks = (count - head) & -kBlock;
    if (inBlocks > 0)
      WithWholeBlocks<uint8_t, Form::kBytes>(inBlocks, [=](auto walk) VX_INLINED {
        ApplyToRow(walk, CopySelected<Selects>{selects}, to.From(head), s.From(head), m.From(head));
      });
    copyShort(head + inBlocks, count - head - inBlocks);
  };
  ForEachRow(rows, row, destination, source, mask);
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
