// The argument lists of the blends.
//
// All planes hold 8-bit samples. Rows, columns and strides are signed
// 32-bit. A stride is in bytes from a row to the next, and may be negative.
// If rows or columns are below 1, no memory is touched. Only the `columns`
// bytes of each row are read, and only those of the destination are written.
//
// Of a colour, an opacity or a flag only the low byte counts; the bits above may hold anything.
#pragma once

#include <cstdint>

namespace vantrix {

using PlaneBlend = void(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t columns,
                        int32_t sourceStride, int32_t destinationStride);
using OpacityBlend = void(const uint8_t* source, uint8_t* destination, int32_t rows,
                          int32_t columns, int32_t sourceStride, int32_t destinationStride,
                          uint32_t opacity);
using MaskedBlend = void(const uint8_t* source, uint8_t* destination, const uint8_t* mask,
                         int32_t rows, int32_t columns, int32_t sourceStride,
                         int32_t destinationStride, int32_t maskStride);
using ColorMaskedBlend = void(uint32_t color, uint8_t* destination, const uint8_t* mask,
                              int32_t rows, int32_t columns, int32_t destinationStride,
                              int32_t maskStride);

// The destination's samples are not read.
using PlanesBlend = void(const uint8_t* first, uint8_t* destination, const uint8_t* second,
                         int32_t rows, int32_t columns, int32_t firstStride,
                         int32_t destinationStride, int32_t secondStride);
// Here the destination is the third plane.
using InvertBlend = void(const uint8_t* first, const uint8_t* second, uint8_t* destination,
                         int32_t rows, int32_t columns, int32_t firstStride, int32_t secondStride,
                         int32_t destinationStride, uint32_t invertFirst, uint32_t invertSecond,
                         uint32_t invertResult);

// Both planes are read and written.
using ShareBlend = void(uint8_t* share, uint8_t* combined, int32_t rows, int32_t columns,
                        int32_t shareStride, int32_t combinedStride);

// The mask comes first and the colour last.
using MaskFirstBlend = void(const uint8_t* mask, uint8_t* destination, int32_t rows,
                            int32_t columns, int32_t maskStride, int32_t destinationStride,
                            uint32_t color);

}  // namespace vantrix
