#include "suites/memory/fill.h"

#include <cstring>

namespace vantrix {
namespace {

// From here on the runtime's fill, which uses the processor's widest stores, was
// measured to be quicker than 16-byte ones.
constexpr intptr_t kRuntimeFillBytes = 192;

// Stores the pattern over `bytes` bytes, of which a piece must hold whole values:
// short runs as two overlapping pieces, longer ones as registers of which the last
// reaches back.
VX_INLINE void FillPattern(uint8_t* destination, intptr_t bytes, Bytes16 pattern) {
  if (bytes < 16) {
    if (bytes >= 8) return StoreEnds<8>(destination, bytes, pattern);
    if (bytes >= 4) return StoreEnds<4>(destination, bytes, pattern);
    if (bytes >= 2) return StoreEnds<2>(destination, bytes, pattern);
    if (bytes >= 1) *destination = pattern[0];
    return;
  }
  Store(destination, pattern);
  const intptr_t last = bytes - 16;
  intptr_t x = 16;
  for (; x + 64 <= last; x += 64)
    for (int i = 0; i < 64; i += 16) Store(destination + x + i, pattern);
  for (; x < last; x += 16) Store(destination + x, pattern);
  Store(destination + last, pattern);
}

}  // namespace

void FillBytes(uint8_t* destination, int32_t bytes, uint32_t value) {
  if (bytes < kRuntimeFillBytes)
    FillPattern(destination, bytes, Fill<Bytes16>(static_cast<uint8_t>(value)));
  else
    std::memset(destination, static_cast<int>(value), static_cast<size_t>(bytes));
}

void FillWords(uint16_t* destination, int32_t count, uint32_t value) {
  FillPattern(reinterpret_cast<uint8_t*>(destination), intptr_t{count} * 2,
              As<Bytes16>(Fill<Words8>(static_cast<uint16_t>(value))));
}

}  // namespace vantrix
