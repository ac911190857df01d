// The argument lists of the blends.
//
// All planes hold 8-bit samples; rows, columns and strides are signed 32-bit, a
// stride is in bytes from a row to the next and may be negative. Rows or columns
// below 1 touch no memory. Nothing but the destination's `columns` bytes of each row
// is written, nothing but those and the operands' is read.
//
// Of a colour or an opacity the low byte counts, whatever stands above it.
#pragma once

#include <cstdint>

namespace vantrix {

using MaskedBlend = void(const uint8_t* source, uint8_t* destination, const uint8_t* mask,
                         int32_t rows, int32_t columns, int32_t sourceStride,
                         int32_t destinationStride, int32_t maskStride);
using ColorMaskedBlend = void(uint32_t color, uint8_t* destination, const uint8_t* mask,
                              int32_t rows, int32_t columns, int32_t destinationStride,
                              int32_t maskStride);

}  // namespace vantrix
