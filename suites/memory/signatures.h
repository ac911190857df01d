// The argument lists of the memory routines.
//
// Counts and strides are signed 32-bit. A count below 1 touches no memory. A stride is in bytes
// from a row to the next. No alignment is needed, not even for 16-bit values. Of a value only the
// low byte counts, or the low half for 16-bit fills.
#pragma once

#include <cstdint>

namespace vantrix {

using CopyBytesRoutine = void(const uint8_t* source, uint8_t* destination, int32_t bytes);
using CopyRectRoutine = void(const uint8_t* source, uint8_t* destination, int32_t rows,
                             int32_t rowBytes, int32_t sourceStride, int32_t destinationStride);
using FillBytesRoutine = void(uint8_t* destination, int32_t bytes, uint32_t value);
using FillRectRoutine = void(uint8_t* destination, int32_t rows, int32_t width, int32_t stride,
                             uint32_t value);
using FillWordsRoutine = void(uint16_t* destination, int32_t count, uint32_t value);
using FillWordRectRoutine = void(uint16_t* destination, int32_t rows, int32_t width, int32_t stride,
                                 uint32_t value);

// The result is 1 or 0.
using BytesAllEqualRoutine = uint32_t(const uint8_t* pointer, int32_t bytes, uint32_t value);
using RectAllEqualRoutine = uint32_t(const uint8_t* pointer, int32_t rows, int32_t width,
                                     int32_t stride, uint32_t value);

// The slots of the suite that kernels of other suites call.
struct MemorySlot {
  enum { kCopyBytes = 0, kFillBytes = 3 };
};

}  // namespace vantrix
