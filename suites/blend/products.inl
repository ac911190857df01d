// Bodies of products.h, for the units that instantiate them.
#pragma once

#include "common/rounding.h"
#include "common/rows.h"
#include "suites/blend/products.h"

namespace vantrix {

// The product with any of its three samples complemented: 255 inverts, 0 does not.
struct InvertedProduct {
  uint8_t first, second, result;
  template <class V>
  VX_INLINE V operator()(V a, V b) const {
    return Multiply(a ^ first, b ^ second) ^ result;
  }
};

template <class Form>
void BlendMultiplyPlanesInvert8(const uint8_t* first, const uint8_t* second, uint8_t* destination,
                                int32_t rows, int32_t columns, int32_t firstStride,
                                int32_t secondStride, int32_t destinationStride,
                                uint32_t invertFirst, uint32_t invertSecond,
                                uint32_t invertResult) {
  const auto inverter = [](uint32_t flag) -> uint8_t {
    return static_cast<uint8_t>(flag) != 0 ? 255 : 0;
  };
  const InvertedProduct rule{inverter(invertFirst), inverter(invertSecond), inverter(invertResult)};
  ApplyToRows<Form>(rows, columns, Output{{destination, destinationStride}}, rule,
                    Plane{first, firstStride}, Plane{second, secondStride});
}

template <class Form>
void BlendMultiplyPlanes8(const uint8_t* first, uint8_t* destination, const uint8_t* second,
                          int32_t rows, int32_t columns, int32_t firstStride,
                          int32_t destinationStride, int32_t secondStride) {
  ApplyToRows<Form>(rows, columns, Output{{destination, destinationStride}},
                    InvertedProduct{0, 0, 0}, Plane{first, firstStride},
                    Plane{second, secondStride});
}

template <class Form>
void BlendInvertMultiplyPlanes8(const uint8_t* first, uint8_t* destination, const uint8_t* second,
                                int32_t rows, int32_t columns, int32_t firstStride,
                                int32_t destinationStride, int32_t secondStride) {
  ApplyToRows<Form>(rows, columns, Output{{destination, destinationStride}},
                    InvertedProduct{255, 0, 255}, Plane{first, firstStride},
                    Plane{second, secondStride});
}

}  // namespace vantrix
