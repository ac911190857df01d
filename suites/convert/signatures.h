// The argument lists of the conversions.
//
// Rows, widths (in samples) and strides (in bytes) are signed 32-bit. If rows or width are below 1,
// nothing is done. The stride of 16-bit samples is rounded down to an even number of bytes.
#pragma once

#include <cstdint>

namespace vantrix {

using RescaleWordsRoutine = uint64_t(uint16_t* samples, uint32_t fromMaximum, uint32_t toMaximum,
                                     int32_t rows, int32_t width, int32_t stride);
using Expand8To16Routine = void(const uint8_t* source, uint16_t* destination, int32_t rows,
                                int32_t width, int32_t sourceStride, int32_t destinationStride);

}  // namespace vantrix
