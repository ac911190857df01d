// Tests for one value throughout, suite memo slots 17 and 18.
#pragma once

#include "common/forms.h"
#include "suites/memory/rect.h"
#include "suites/memory/signatures.h"

namespace vantrix {

// 1 if each of `bytes` bytes equals the low byte of value, else 0; below 1 byte, 1.
template <class Form>
BytesAllEqualRoutine BytesAllEqual;

// The same of `rows` rows of `width` bytes, stride in bytes; 1 where a count is
// below 1. Rows that follow one another are one run; ends at the first that fails.
template <BytesAllEqualRoutine& kBytesAllEqual>
uint32_t RectAllEqual(const uint8_t* pointer, int32_t rows, int32_t width, int32_t stride,
                      uint32_t value) {
  return ForEachRun(rows, width, stride == width, [=](intptr_t row, int32_t bytes) {
    return kBytesAllEqual(pointer + row * stride, bytes, value) != 0;
  });
}

}  // namespace vantrix
