// Bodies of equal.h, for the units that instantiate them.
#pragma once

#include "common/blocks.h"
#include "common/unroll.h"
#include "suites/memory/equal.h"

namespace vantrix {
namespace {

template <class V, int kRegisters>
VX_INLINE bool BlockIsEqual(const uint8_t* at, V value) {
  V differing{};
  Repeat<kRegisters>(
      [&](int i) VX_INLINED { differing |= Load<V>(at + i * intptr_t{sizeof(V)}) ^ value; });
  return AllSet(differing == 0);
}

// Tests one block of kRegisters registers a turn. The last block reaches back over the one before.
template <class V, int kRegisters>
VX_INLINE bool BlocksAreEqual(const uint8_t* at, intptr_t count, uint8_t value) {
  constexpr intptr_t kBytes = kRegisters * sizeof(V);
  const V wanted = Fill<V>(value);
  for (intptr_t x = 0; x < count - kBytes; x += kBytes)
    if (!BlockIsEqual<V, kRegisters>(at + x, wanted)) return false;
  return BlockIsEqual<V, kRegisters>(at + count - kBytes, wanted);
}

// Tests fewer than 16 bytes: the first and the last of them as two numbers.
template <class Number>
VX_INLINE bool EndsAreEqual(const uint8_t* at, intptr_t count, uint8_t value) {
  Number first, last;
  __builtin_memcpy(&first, at, sizeof first);
  __builtin_memcpy(&last, at + count - sizeof last, sizeof last);
  const Number wanted = static_cast<Number>(~Number{0} / 255 * value);
  return ((first ^ wanted) | (last ^ wanted)) == 0;
}

}  // namespace

template <class Form>
uint32_t BytesAllEqual(const uint8_t* pointer, int32_t bytes, uint32_t value) {
  using V = Register<uint8_t, Form>;
  constexpr intptr_t kBytes = sizeof(V);
  const auto wanted = static_cast<uint8_t>(value);
  const intptr_t count = bytes;
  if (count >= 8 * kBytes) return BlocksAreEqual<V, 8>(pointer, count, wanted);
  if (count >= 4 * kBytes) return BlocksAreEqual<V, 4>(pointer, count, wanted);
  bool isEqual = true;
  if (WithWholeBlocks<uint8_t, Form::kBytes>(
          0, count, [&]<class W, int kMost>(Blocks<W, kMost>) VX_INLINED {
            isEqual = BlocksAreEqual<W, 1>(pointer, count, wanted);
          }))
    return isEqual;
  if (count >= 8) return EndsAreEqual<uint64_t>(pointer, count, wanted);
  if (count >= 4) return EndsAreEqual<uint32_t>(pointer, count, wanted);
  for (intptr_t x = 0; x < count; ++x)
    if (pointer[x] != wanted) return 0;
  return 1;
}

}  // namespace vantrix
