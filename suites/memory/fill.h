// Fills of bytes, 16-bit values and rectangles, suite memo slots 3, 4, 65 and 66.
#pragma once

#include "suites/memory/rect.h"
#include "suites/memory/signatures.h"

namespace vantrix {

// Sets `bytes` bytes to the low byte of value; none if that is below 1.
template <class Form>
FillBytesRoutine FillBytes;

// Sets `count` 16-bit values to the low half of value; none if that is below 1. No alignment is
// needed, not even to 2.
template <class Form>
FillWordsRoutine FillWords;

// Fills `rows` rows of `width` bytes, stride in bytes; none
// if a count is below 1. Contiguous rows are one run.
template <FillBytesRoutine& kFillBytes>
void FillRect(uint8_t* destination, int32_t rows, int32_t width, int32_t stride, uint32_t value) {
  ForEachRun(rows, width, stride == width, [=](intptr_t row, int32_t bytes) {
    kFillBytes(destination + row * stride, bytes, value);
    return true;
  });
}

// The same for 16-bit values. With an odd stride, which is in bytes, rows are never one run.
template <FillWordsRoutine& kFillWords>
void FillWordRect(uint16_t* destination, int32_t rows, int32_t width, int32_t stride,
                  uint32_t value) {
  const bool isContiguous = stride % 2 == 0 && stride / 2 == width;
  ForEachRun(rows, width, isContiguous, [=](intptr_t row, int32_t count) {
    const auto first = reinterpret_cast<uint8_t*>(destination) + row * stride;
    kFillWords(reinterpret_cast<uint16_t*>(first), count, value);
    return true;
  });
}

}  // namespace vantrix
