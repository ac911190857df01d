#include "suites/memory/equal.h"

namespace vantrix {
namespace {

VX_INLINE auto IsEqual(const uint8_t* at, Bytes16 value) { return Load<Bytes16>(at) == value; }

// 64 bytes under one test.
VX_INLINE bool BlockIsEqual(const uint8_t* at, Bytes16 value) {
  return AllSet((IsEqual(at, value) & IsEqual(at + 16, value)) &
                (IsEqual(at + 32, value) & IsEqual(at + 48, value)));
}

template <int kHalf>
VX_INLINE bool EndsAreEqual(const uint8_t* at, intptr_t bytes, Bytes16 value) {
  // The lanes behind the two ends are 0 on both sides.
  using Half = std::conditional_t<kHalf == 8, uint64_t, uint32_t>;
  Half first, last, wanted;
  __builtin_memcpy(&first, at, kHalf);
  __builtin_memcpy(&last, at + bytes - kHalf, kHalf);
  __builtin_memcpy(&wanted, &value, kHalf);
  return ((first ^ wanted) | (last ^ wanted)) == 0;
}

}  // namespace

uint32_t BytesAllEqual(const uint8_t* pointer, int32_t bytes, uint32_t value) {
  const Bytes16 wanted = Fill<Bytes16>(static_cast<uint8_t>(value));
  const intptr_t count = bytes;
  if (count >= 64) {
    intptr_t x = 0;
    for (; x < count - 64; x += 64)
      if (!BlockIsEqual(pointer + x, wanted)) return 0;
    return BlockIsEqual(pointer + count - 64, wanted);
  }
  if (count >= 16) {
    for (intptr_t x = 0; x < count - 16; x += 16)
      if (!AllSet(IsEqual(pointer + x, wanted))) return 0;
    return AllSet(IsEqual(pointer + count - 16, wanted));
  }
  if (count >= 8) return EndsAreEqual<8>(pointer, count, wanted);
  if (count >= 4) return EndsAreEqual<4>(pointer, count, wanted);
  for (intptr_t x = 0; x < count; ++x)
    if (pointer[x] != wanted[0]) return 0;
  return 1;
}

}  // namespace vantrix
