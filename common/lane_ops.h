// The arithmetic and the comparisons on lanes that have no operator, for every width of register.
//
//   WeighLow, -High          d (255 - w) + r w in 16-bit lanes, from halves as for WidenLow, -High
//   HighProduct              the high half of each 32-bit product
//   Excess                   max(a - b, 0)
//   SumOfDifferences         the sum of |a - b| over the eight bytes of each 64-bit lane
//   RoundedMean              (a + b + 1) / 2
//   ProductSums              a[2 i] b[2 i] + a[2 i + 1] b[2 i + 1] of signed 16-bit lanes. It wraps
//                            only if all four are -32768
//   MixedProductSums         the same of unsigned bytes a and signed bytes b, if sums fit (SSSE3)
//   ToFloats, Truncated      32-bit integers to single precision and back
//   Root                     the square root
//   ClampedSum               min(a + b, 65535)
//   HalfUp                   v / 2, halves rounded up
//   TruncatedQuotient        n / d by single-precision division, for quotients up to 32767
//   SetBytes                 one bit for each byte: whether the comparison holds in its lane
//   AllSet, NoneSet          whether the comparison holds in every lane, or in none
//   MostlySomeSet            whether it holds in any lane, if it mostly does
//   IsNegative, IsLight      whether the highest bit is set
//   Opaque                   the same register, of which the compiler knows nothing
#pragma once

#include "common/lane_moves.h"

namespace vantrix {

// Whether lanes are negative, seen as signed: the highest bit is set.
template <class V>
VX_LANE auto IsNegative(V v) {
  return As<Lanes<std::make_signed_t<LaneOf<V>>, kLaneCount<V>>>(v) < 0;
}
// Whether samples are 128 or more.
template <class V>
VX_LANE auto IsLight(V v) {
  return IsNegative(v);
}

template <class V>
VX_LANE V HighProduct(V a, V b) {
  return As<V>(ByWidth([](auto x, auto y) VX_INLINED { return _mm_mulhi_epu16(x, y); },
                       [](auto x, auto y) VX_INLINED { return _mm256_mulhi_epu16(x, y); },
                       [](auto x, auto y) VX_INLINED { return _mm512_mulhi_epu16(x, y); }, a, b));
}
template <class V>
VX_LANE V Excess(V a, V b) {
  if constexpr (kIsOneSample<V>)
    return a > b ? a - b : V{};
  else
    return As<V>(ByWidth([](auto x, auto y) VX_INLINED { return _mm_subs_epu8(x, y); },
                         [](auto x, auto y) VX_INLINED { return _mm256_subs_epu8(x, y); },
                         [](auto x, auto y) VX_INLINED { return _mm512_subs_epu8(x, y); }, a, b));
}
template <class V>
VX_LANE auto SumOfDifferences(V a, V b) {
  if constexpr (kIsOneSample<V>)
    return a[0] > b[0] ? uint32_t{a[0]} - b[0] : uint32_t{b[0]} - a[0];
  else
    return As<U64<V>>(ByWidth([](auto x, auto y) VX_INLINED { return _mm_sad_epu8(x, y); },
                              [](auto x, auto y) VX_INLINED { return _mm256_sad_epu8(x, y); },
                              [](auto x, auto y) VX_INLINED { return _mm512_sad_epu8(x, y); }, a,
                              b));
}
template <class V>
VX_LANE V RoundedMean(V a, V b) {
  if constexpr (kIsOneSample<V>)
    return V{static_cast<uint8_t>((a[0] + b[0] + 1) >> 1)};
  else
    return As<V>(ByWidth([](auto x, auto y) VX_INLINED { return _mm_avg_epu8(x, y); },
                         [](auto x, auto y) VX_INLINED { return _mm256_avg_epu8(x, y); },
                         [](auto x, auto y) VX_INLINED { return _mm512_avg_epu8(x, y); }, a, b));
}
template <class V>
VX_LANE U32<V> ProductSums(V a, V b) {
  return As<U32<V>>(ByWidth([](auto x, auto y) VX_INLINED { return _mm_madd_epi16(x, y); },
                            [](auto x, auto y) VX_INLINED { return _mm256_madd_epi16(x, y); },
                            [](auto x, auto y) VX_INLINED { return _mm512_madd_epi16(x, y); }, a,
                            b));
}
template <class V>
VX_LANE F32<V> ToFloats(V v) {
  return __builtin_convertvector(v, F32<V>);
}
template <class V>
VX_LANE I32<V> Truncated(V v) {
  return __builtin_convertvector(v, I32<V>);
}
template <class V>
VX_LANE V Root(V v) {
  return As<V>(ByWidth([](auto x) VX_INLINED { return _mm_sqrt_ps(As<__m128>(x)); },
                       [](auto x) VX_INLINED { return _mm256_sqrt_ps(As<__m256>(x)); },
                       [](auto x) VX_INLINED {
                         // Of the plain one GCC 12 warns that its header leaves a value open.
                         return _mm512_mask_sqrt_ps(As<__m512>(x), 0xFFFF, As<__m512>(x));
                       },
                       v));
}
template <class V>
VX_LANE V ClampedSum(V a, V b) {
  if constexpr (kIsOneSample<V>)
    return (a + b) | As<V>(a + b < a);
  else
    return As<V>(ByWidth([](auto x, auto y) VX_INLINED { return _mm_adds_epu16(x, y); },
                         [](auto x, auto y) VX_INLINED { return _mm256_adds_epu16(x, y); },
                         [](auto x, auto y) VX_INLINED { return _mm512_adds_epu16(x, y); }, a, b));
}
template <class V>
VX_LANE V HalfUp(V v) {
  if constexpr (kIsOneSample<V>)
    return (v >> 1) + (v & 1);
  else
    return As<V>(ByWidth([](auto x, auto y) VX_INLINED { return _mm_avg_epu16(x, y); },
                         [](auto x, auto y) VX_INLINED { return _mm256_avg_epu16(x, y); },
                         [](auto x, auto y) VX_INLINED { return _mm512_avg_epu16(x, y); }, v, V{}));
}
template <class V>
VX_LANE V TruncatedQuotient(V n, V d) {
  const auto low = [](V v) VX_INLINED { return ToFloats(As<I32<V>>(InterleaveLow(v, V{}))); };
  const auto high = [](V v) VX_INLINED { return ToFloats(As<I32<V>>(InterleaveHigh(v, V{}))); };
  return Narrow(Truncated(low(n) / low(d)), Truncated(high(n) / high(d)));
}

template <class Condition>
VX_LANE auto SetBytes(Condition condition) {
  if constexpr (sizeof(Condition) > kWidestRegister)
    return uint64_t{SetBytes(Half<0>(condition))} | uint64_t{SetBytes(Half<1>(condition))}
                                                        << sizeof(Condition) / 2;
  else if constexpr (sizeof(Condition) == 16)
    return static_cast<uint32_t>(_mm_movemask_epi8(Bits(condition)));
  else if constexpr (sizeof(Condition) == 32)
    return static_cast<uint32_t>(_mm256_movemask_epi8(Bits(condition)));
  else
    return uint64_t{_mm512_movepi8_mask(Bits(condition))};
}
template <class Condition>
VX_LANE bool AllSet(Condition condition) {
  return SetBytes(condition) == ~uint64_t{0} >> (64 - sizeof(Condition));
}
// Hides where a register comes from. If a branch follows a comparison of 32 bytes, clang packs the
// result before the branch and unpacks it after.
template <class V>
VX_LANE V Opaque(V v) {
  if constexpr (sizeof(V) == 32 && kWidestRegister >= 32) asm("" : "+x"(v));
  return v;
}
// Whether the comparison holds in any lane, of a register or
// of one sample. The compiler is told that it mostly does.
template <class Condition>
VX_LANE bool MostlySomeSet(Condition condition) {
  if constexpr (kIsOneSample<Condition>)
    return condition[0] != 0;
  else if constexpr (sizeof(Condition) > kWidestRegister)
    return MostlySomeSet(Half<0>(condition) | Half<1>(condition));
  else
    return __builtin_expect(SetBytes(condition) != 0, 1);
}
template <class Condition>
VX_LANE bool NoneSet(Condition condition) {
  return SetBytes(condition) == 0;
}

#if defined(__SSSE3__)
template <class V>
VX_LANE U16<V> MixedProductSums(V a, V b) {
  return As<U16<V>>(ByWidth([](auto x, auto y) VX_INLINED { return _mm_maddubs_epi16(x, y); },
                            [](auto x, auto y) VX_INLINED { return _mm256_maddubs_epi16(x, y); },
                            [](auto x, auto y) VX_INLINED { return _mm512_maddubs_epi16(x, y); }, a,
                            b));
}

// One instruction multiplies unsigned by signed bytes and adds two neighbours. Samples minus 128
// are signed. Their two weights add up to 255, so the sum is 255 x 128 too small.
template <class V>
VX_LANE U16<V> WeighLow(V d, V r, V w) {
  return MixedProductSums(InterleaveLow(w, V(~w)), InterleaveLow(V(r ^ 128), V(d ^ 128))) +
         255 * 128;
}
template <class V>
VX_LANE U16<V> WeighHigh(V d, V r, V w) {
  return MixedProductSums(InterleaveHigh(w, V(~w)), InterleaveHigh(V(r ^ 128), V(d ^ 128))) +
         255 * 128;
}
#else
template <class V>
VX_LANE U16<V> WeighLow(V d, V r, V w) {
  return WidenLow(d) * WidenLow(V(~w)) + WidenLow(r) * WidenLow(w);
}
template <class V>
VX_LANE U16<V> WeighHigh(V d, V r, V w) {
  return WidenHigh(d) * WidenHigh(V(~w)) + WidenHigh(r) * WidenHigh(w);
}
#endif

}  // namespace vantrix
