// Tests for one value throughout, suite memo slots 17 and 18.
#pragma once

#include "suites/memory/rect.h"
#include "suites/memory/signatures.h"

namespace vantrix {

// Returns 1 if all of `bytes` bytes equal the low byte of value, else 0. Below 1 byte returns 1.
template <class Form>
BytesAllEqualRoutine BytesAllEqual;

// The same for `rows` rows of `width` bytes, stride in bytes; returns 1 if a count is below 1.
// Contiguous rows are one run. Returns at the first run with another byte.
template <BytesAllEqualRoutine& kBytesAllEqual>
uint32_t RectAllEqual(const uint8_t* pointer, int32_t rows, int32_t width, int32_t stride,
                      uint32_t value) {
  return ForEachRun(rows, width, stride == width, [=](intptr_t row, int32_t bytes) {
    return kBytesAllEqual(pointer + row * stride, bytes, value) != 0;
  });
}

}  // namespace vantrix
