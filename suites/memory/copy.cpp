#include "suites/memory/copy.h"

#include <cstring>

namespace vantrix {
namespace {

// Up to here a copy is a few registers, all loaded before the first is stored, so
// that the runs may overlap.
constexpr intptr_t kShort = 64;

template <int kHalf>
VX_INLINE void CopyEnds(const uint8_t* source, uint8_t* destination, intptr_t count) {
  StoreEnds<kHalf>(destination, count, LoadEnds<Bytes16, kHalf>(source, count));
}

// The first kRegisters and the last kRegisters registers; they may overlap.
template <int kRegisters>
VX_INLINE void CopyRegisters(const uint8_t* source, uint8_t* destination, intptr_t count) {
  Bytes16 first[kRegisters], last[kRegisters];
  for (int i = 0; i < kRegisters; ++i) {
    first[i] = Load<Bytes16>(source + 16 * i);
    last[i] = Load<Bytes16>(source + count - 16 * (i + 1));
  }
  for (int i = 0; i < kRegisters; ++i) {
    Store(destination + 16 * i, first[i]);
    Store(destination + count - 16 * (i + 1), last[i]);
  }
}

VX_INLINE void CopyShort(const uint8_t* source, uint8_t* destination, intptr_t count) {
  if (count > 32) {
    CopyRegisters<2>(source, destination, count);
  } else if (count >= 16) {
    CopyRegisters<1>(source, destination, count);
  } else if (count >= 8) {
    CopyEnds<8>(source, destination, count);
  } else if (count >= 4) {
    CopyEnds<4>(source, destination, count);
  } else if (count >= 2) {
    CopyEnds<2>(source, destination, count);
  } else if (count == 1) {
    *destination = *source;
  }
}

}  // namespace

void CopyBytesSSE2(const uint8_t* source, uint8_t* destination, int32_t bytes) {
  const intptr_t count = bytes;
  if (count <= kShort) return CopyShort(source, destination, count);
  const auto length = static_cast<uintptr_t>(bytes);
  const auto ahead = reinterpret_cast<uintptr_t>(destination) - reinterpret_cast<uintptr_t>(source);
  if (count < 128 || ahead < length || -ahead < length) {
    std::memmove(destination, source, length);
    return;
  }
  // The blocks start at a boundary of the destination. The first and the last bytes
  // are registers that the blocks overlap.
  const Bytes16 last = Load<Bytes16>(source + count - 16);
  Store(destination, Load<Bytes16>(source));
  intptr_t x = 16 - (reinterpret_cast<uintptr_t>(destination) & 15);
  for (; x + 128 <= count; x += 128)
    for (int i = 0; i < 128; i += 16) Store(destination + x + i, Load<Bytes16>(source + x + i));
  for (; x + 16 <= count; x += 16) Store(destination + x, Load<Bytes16>(source + x));
  Store(destination + count - 16, last);
}

// The runtime's copy chooses the widest code for the processor, more than this
// module's instruction sets; it moves overlapping bytes as well.
void CopyBytesSSSE3(const uint8_t* source, uint8_t* destination, int32_t bytes) {
  if (bytes <= kShort) return CopyShort(source, destination, bytes);
  std::memmove(destination, source, static_cast<size_t>(bytes));
}

}  // namespace vantrix
