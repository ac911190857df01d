// Copies of bytes and rectangles, suite memo slots 0 and 1.
#pragma once

#include "common/forms.h"
#include "suites/memory/rect.h"
#include "suites/memory/signatures.h"

namespace vantrix {

// Copies `bytes` bytes; below 1, nothing. Source and destination may overlap in any
// way: the result is as if all had been read first. No alignment is asked for.
//
// Sse2 copies long runs by registers, any other form by the runtime's routine.
template <class Form>
CopyBytesRoutine CopyBytes;

// Copies `rows` rows of `rowBytes` bytes, strides in bytes; nothing where a count is
// below 1 or source and destination are one. Rows are copied in order, each as
// kCopyBytes does; rows that follow one another in both planes are one run.
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
