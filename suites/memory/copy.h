// Copies of bytes and rectangles, suite memo slots 0 and 1.
#pragma once

#include "suites/memory/rect.h"
#include "suites/memory/signatures.h"

namespace vantrix {

// Copies `bytes` bytes; none if that is below 1. Source and destination may overlap in any way: the
// result is as if all bytes had been read first. No alignment is needed.
//
// Sse2 copies long runs in registers, any other form by the C library's routine.
template <class Form>
CopyBytesRoutine CopyBytes;

// Copies `rows` rows of `rowBytes` bytes; none if a count is below 1 or source and destination are
// the same. Strides are in bytes. Rows are copied in order, each by kCopyBytes; rows that are
// contiguous in both planes are one run.
template <CopyBytesRoutine& kCopyBytes>
void CopyRect(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t rowBytes,
              int32_t sourceStride, int32_t destinationStride) {
  if (source == destination) return;
  const bool isContiguous = sourceStride == rowBytes && destinationStride == rowBytes;
  ForEachRun(rows, rowBytes, isContiguous, [=](intptr_t row, int32_t bytes) {
    kCopyBytes(source + row * sourceStride, destination + row * destinationStride, bytes);
    return true;
  });
}

}  // namespace vantrix
