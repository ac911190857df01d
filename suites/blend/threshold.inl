// Bodies of threshold.h, for the units that instantiate them.
#pragma once

#include "suites/blend/selected_rows.h"
#include "suites/blend/threshold.h"

namespace vantrix {

// Half of the samples of a varied mask are light, so few samples are faster taken one at a time.
// Zeros are rare, and most registers have none. Measured.
struct WhereLight {
  static constexpr int kFewestInRegister = 8;
  template <class V>
  VX_INLINE auto operator()(V m) const {
    return IsLight(m);
  }
};
struct WhereZero {
  static constexpr int kFewestInRegister = 2;
  template <class V>
  VX_INLINE auto operator()(V m) const {
    return m == 0;
  }
};

template <class Where>
struct CopySelected {
  static constexpr bool kReadsTarget = false;
  static constexpr int kFewestInRegister = Where::kFewestInRegister;
  template <class V>
  VX_INLINE auto Selects(V, V, V m) const {
    return Where{}(m);
  }
  template <class V>
  VX_INLINE V Selected(V, V s, V) const {
    return s;
  }
  template <class V>
  VX_INLINE V operator()(V d, V s, V m) const {
    return Where{}(m) ? s : d;
  }
};

template <class Form>
void BlendThresholdMasked8(const uint8_t* source, uint8_t* destination, const uint8_t* mask,
                           int32_t rows, int32_t columns, int32_t sourceStride,
                           int32_t destinationStride, int32_t maskStride) {
  ApplyToSelected<Form>(rows, columns, Target{destination, destinationStride},
                        CopySelected<WhereLight>{}, Plane{source, sourceStride},
                        Plane{mask, maskStride});
}

template <class Form>
void BlendColorThresholdMasked8(uint32_t color, uint8_t* destination, const uint8_t* mask,
                                int32_t rows, int32_t columns, int32_t destinationStride,
                                int32_t maskStride) {
  ApplyToSelected<Form>(rows, columns, Target{destination, destinationStride},
                        CopySelected<WhereLight>{}, Constant{static_cast<uint8_t>(color)},
                        Plane{mask, maskStride});
}

template <class Form>
void BlendColorWhereZero8(const uint8_t* mask, uint8_t* destination, int32_t rows, int32_t columns,
                          int32_t maskStride, int32_t destinationStride, uint32_t color) {
  ApplyToSelected<Form>(rows, columns, Target{destination, destinationStride},
                        CopySelected<WhereZero>{}, Constant{static_cast<uint8_t>(color)},
                        Plane{mask, maskStride});
}

}  // namespace vantrix
