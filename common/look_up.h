// Lanes looked up by index, if the unit has instructions for it.
//
//   Shuffle     byte i is byte indices[i] of its group, or 0 for an index of 128 or more. Exists if
//               kShuffles
//   LookUp      lane i is lane indices[i] of the whole register, or of two registers in a row,
//               modulo their lane count. Exists if kLooksUp
//   LookUpEven  the same for bytes, with 0 in the odd ones
#pragma once

#include "common/registers.h"

namespace vantrix {

// Whether lanes can be looked up in a register V, and whether bytes can be in their group.
#if defined(__AVX512VBMI__)
template <class V>
static constexpr bool kLooksUp =
    (sizeof(V) >= 32 && sizeof(LaneOf<V>) == 4) || (sizeof(V) == 64 && sizeof(LaneOf<V>) == 1);
#elif defined(__AVX2__)
template <class V>
static constexpr bool kLooksUp = sizeof(V) == 32 && sizeof(LaneOf<V>) == 4;
#else
template <class V>
static constexpr bool kLooksUp = false;
#endif
#if defined(__SSSE3__)
static constexpr bool kShuffles = true;
#else
static constexpr bool kShuffles = false;
#endif

#if defined(__AVX2__)
template <class V>
  requires(kLooksUp<V> && sizeof(LaneOf<V>) == 4)
VX_LANE V LookUp(V v, V indices) {
  return As<V>(ByWidth([](auto x, auto) VX_INLINED { return x; },
                       [](auto x, auto y) VX_INLINED { return _mm256_permutevar8x32_epi32(x, y); },
                       [](auto x, auto y) VX_INLINED { return _mm512_permutexvar_epi32(y, x); }, v,
                       indices));
}
template <class V>
VX_LANE V LookUp(V first, V second, V indices) {
#if defined(__AVX512VBMI__)
  if constexpr (sizeof(V) == 64)
    return As<V>(_mm512_permutex2var_epi32(Bits(first), Bits(indices), Bits(second)));
  else
#endif
    return (indices & kLaneCount<V>) == 0 ? LookUp(first, indices) : LookUp(second, indices);
}
#endif
#if defined(__AVX512VBMI__)
template <class V>
  requires(kLooksUp<V> && sizeof(LaneOf<V>) == 1)
VX_LANE V LookUp(V v, V indices) {
  return As<V>(_mm512_permutexvar_epi8(Bits(indices), Bits(v)));
}
template <class V>
VX_LANE V LookUpEven(V v, V indices) {
  // The mask is hidden: clang turns a known one into a separate instruction.
  uint64_t even = 0x5555555555555555;
  asm("" : "+r"(even));
  return As<V>(_mm512_maskz_permutexvar_epi8(even, Bits(indices), Bits(v)));
}
#endif

#if defined(__SSSE3__)
template <class V>
VX_LANE V Shuffle(V v, V indices) {
  return As<V>(ByWidth([](auto x, auto y) VX_INLINED { return _mm_shuffle_epi8(x, y); },
                       [](auto x, auto y) VX_INLINED { return _mm256_shuffle_epi8(x, y); },
                       [](auto x, auto y) VX_INLINED { return _mm512_shuffle_epi8(x, y); }, v,
                       indices));
}
#endif

}  // namespace vantrix
