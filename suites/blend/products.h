// Products of two planes, suite blnd slots 74, 75 and 97. The destination's own
// samples are never read; it may be one of the operands.
#pragma once

#include "suites/blend/signatures.h"

namespace vantrix {

// d' = a b / 255, rounded to nearest.
template <class Form>
void BlendMultiplyPlanes8(const uint8_t* first, uint8_t* destination, const uint8_t* second,
                          int32_t rows, int32_t columns, int32_t firstStride,
                          int32_t destinationStride, int32_t secondStride);

// d' = 255 - (255 - a) b / 255.
template <class Form>
void BlendInvertMultiplyPlanes8(const uint8_t* first, uint8_t* destination, const uint8_t* second,
                                int32_t rows, int32_t columns, int32_t firstStride,
                                int32_t destinationStride, int32_t secondStride);

// d' = a b / 255, with a, b and d' each replaced by its complement where its flag is
// not zero. The destination is the third plane.
template <class Form>
void BlendMultiplyPlanesInvert8(const uint8_t* first, const uint8_t* second, uint8_t* destination,
                                int32_t rows, int32_t columns, int32_t firstStride,
                                int32_t secondStride, int32_t destinationStride,
                                uint32_t invertFirst, uint32_t invertSecond, uint32_t invertResult);

}  // namespace vantrix
