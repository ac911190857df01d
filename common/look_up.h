// Lanes chosen by lanes of places, where the unit's instructions can.
//
//   Shuffle     byte i is v[places[i]] of its group, or 0 for a place of 128 or more
//               (where kShuffles says so)
//   LookUp      lane i is v[places[i]] of the whole register, modulo its lanes; or of two
//               registers that follow one another (where kLooksUp says so)
//   LookUpEven  the same of bytes, 0 in the odd ones
#pragma once

#include "common/registers.h"

namespace vantrix {

// Whether lanes of V can be looked up, and whether bytes of a group can be shuffled.
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
VX_LANE V LookUp(V v, V places) {
  return As<V>(ByWidth([](auto x, auto) VX_INLINED { return x; },
                       [](auto x, auto y) VX_INLINED { return _mm256_permutevar8x32_epi32(x, y); },
                       [](auto x, auto y) VX_INLINED { return _mm512_permutexvar_epi32(y, x); }, v,
                       places));
}
template <class V>
VX_LANE V LookUp(V first, V second, V places) {
#if defined(__AVX512VBMI__)
  if constexpr (sizeof(V) == 64)
    return As<V>(_mm512_permutex2var_epi32(Bits(first), Bits(places), Bits(second)));
  else
#endif
    return (places & kLaneCount<V>) == 0 ? LookUp(first, places) : LookUp(second, places);
}
#endif
#if defined(__AVX512VBMI__)
template <class V>
  requires(kLooksUp<V> && sizeof(LaneOf<V>) == 1)
VX_LANE V LookUp(V v, V places) {
  return As<V>(_mm512_permutexvar_epi8(Bits(places), Bits(v)));
}
template <class V>
VX_LANE V LookUpEven(V v, V places) {
  // The mask is hidden, as clang makes an instruction of its own of a known one.
  uint64_t even = 0x5555555555555555;
  asm("" : "+r"(even));
  return As<V>(_mm512_maskz_permutexvar_epi8(even, Bits(places), Bits(v)));
}
#endif

#if defined(__SSSE3__)
template <class V>
VX_LANE V Shuffle(V v, V places) {
  return As<V>(ByWidth([](auto x, auto y) VX_INLINED { return _mm_shuffle_epi8(x, y); },
                       [](auto x, auto y) VX_INLINED { return _mm256_shuffle_epi8(x, y); },
                       [](auto x, auto y) VX_INLINED { return _mm512_shuffle_epi8(x, y); }, v,
                       places));
}
#endif

}  // namespace vantrix
