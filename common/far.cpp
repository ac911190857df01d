#include "common/far.h"

namespace vantrix {

// Columns may be anywhere in a row.
constexpr intptr_t kMostBytes = 4096;

void PrefetchRows(const uint8_t* first, intptr_t stride, int32_t rows, intptr_t bytes) {
  if (bytes > kMostBytes) bytes = kMostBytes;
  for (; rows > 0; --rows, first += stride)
    for (intptr_t x = 0; x < bytes; x += kCacheLine) PrefetchLater(first + x);
}

}  // namespace vantrix
