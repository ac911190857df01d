// Bodies of shapes.h, for the units that instantiate them.
#pragma once

#include "common/rounding.h"
#include "common/rows.h"
#include "suites/blend/shapes.h"

namespace vantrix {

// A mode in part: d' = d + w (full(d, s) - d) / 255, rounded to nearest.
template <class Mode>
struct Weighted {
  Mode full;
  template <class V>
  VX_INLINE V operator()(V d, V s, V w) const {
    return Mix(d, full(d, s), w);
  }
};

template <class Mode, class Form>
void UnderMask(const uint8_t* source, uint8_t* destination, const uint8_t* mask, int32_t rows,
               int32_t columns, int32_t sourceStride, int32_t destinationStride,
               int32_t maskStride) {
  BlendRows<Form>(rows, columns, Target{destination, destinationStride}, Weighted<Mode>{},
                  Plane{source, sourceStride}, Weights{{mask, maskStride}});
}

template <class Mode, class Form>
void ColorUnderMask(uint32_t color, uint8_t* destination, const uint8_t* mask, int32_t rows,
                    int32_t columns, int32_t destinationStride, int32_t maskStride) {
  BlendRows<Form>(rows, columns, Target{destination, destinationStride}, Weighted<Mode>{},
                  Constant{static_cast<uint8_t>(color)}, Weights{{mask, maskStride}});
}

}  // namespace vantrix
