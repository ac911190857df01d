#include "suites/memory/equal.h"

#include "common/unroll.h"

namespace vantrix {
namespace {

template <int kBytes>
VX_INLINE bool BlockIsEqual(const uint8_t* at, Bytes16 value) {
  Bytes16 differing{};
  Repeat<kBytes / 16>([&](int i) VX_INLINED { differing |= Load<Bytes16>(at + 16 * i) ^ value; });
  return AllSet(differing == 0);
}

// A test a block; the last block reaches back over the one before.
template <int kBytes>
VX_INLINE bool BlocksAreEqual(const uint8_t* at, intptr_t count, Bytes16 value) {
  for (intptr_t x = 0; x < count - kBytes; x += kBytes)
    if (!BlockIsEqual<kBytes>(at + x, value)) return false;
  return BlockIsEqual<kBytes>(at + count - kBytes, value);
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
  if (count >= 128) return BlocksAreEqual<128>(pointer, count, wanted);
  if (count >= 64) return BlocksAreEqual<64>(pointer, count, wanted);
  if (count >= 16) return BlocksAreEqual<16>(pointer, count, wanted);
  if (count >= 8) return EndsAreEqual<8>(pointer, count, wanted);
  if (count >= 4) return EndsAreEqual<4>(pointer, count, wanted);
  for (intptr_t x = 0; x < count; ++x)
    if (pointer[x] != wanted[0]) return 0;
  return 1;
}

}  // namespace vantrix
