// The operations on lanes that have no operator.
#pragma once

#include "common/lanes.h"

namespace vantrix {

// Whether samples are 128 or more: bytes seen as signed are negative then.
template <class V>
VX_LANE auto IsLight(V v) {
  return As<Lanes<int8_t, kLaneCount<V>>>(v) < 0;
}

// What has no operator is an overload set on intrinsics, one per register.
//
//   WidenLow, WidenHigh  bytes to 16-bit lanes, zero-extended: together all of v,
//                        in the order that Narrow takes them
//   Narrow               signed 16-bit lanes to bytes, clamped to 0..255; signed 32-bit
//                        ones to signed 16-bit ones, clamped too
//   HighProduct          the high half of each 32-bit product
//   WeighLow, WeighHigh  d (255 - w) + r w in 16-bit lanes, halves as for Widen
//   InterleaveLow, InterleaveHigh
//                        lanes of a and of b in turn, from the low or the high halves
//   Excess               max(a - b, 0)
//   SumOfDifferences     of |a - b|, over the eight bytes of each 64-bit lane
//   SmallerSigned        min(a, b) of signed 16-bit lanes
//   RoundedMean          (a + b + 1) / 2
//   ProductSums          a[2 i] b[2 i] + a[2 i + 1] b[2 i + 1] of signed 16-bit lanes; one
//                        pair in four billion wraps: -32768 throughout
//   MixedProductSums     the same of unsigned bytes a and signed bytes b, if they fit (SSSE3)
//   ToFloats, Truncated  32-bit integers to single precision and back
//   Root                 the square root
//   Shuffle              byte i is v[places[i]], or 0 for a place of 128 or more (SSSE3)
//   Spread               one lane of four in all four
//   ClampedSum           min(a + b, 65535)
//   HalfUp               v / 2, halves rounded up
//   TruncatedQuotient    n / d by single-precision division; quotients to 32767
//   SetBytes             a bit for each byte in whose lane a comparison holds
//   AllSet               whether it holds in every lane

VX_LANE Words8 WidenLow(Bytes16 v) {
  return As<Words8>(_mm_unpacklo_epi8(As<__m128i>(v), __m128i{}));
}
VX_LANE Words8 WidenHigh(Bytes16 v) {
  return As<Words8>(_mm_unpackhi_epi8(As<__m128i>(v), __m128i{}));
}
VX_LANE Bytes16 Narrow(Words8 low, Words8 high) {
  return As<Bytes16>(_mm_packus_epi16(As<__m128i>(low), As<__m128i>(high)));
}
VX_LANE Bytes16 InterleaveLow(Bytes16 a, Bytes16 b) {
  return As<Bytes16>(_mm_unpacklo_epi8(As<__m128i>(a), As<__m128i>(b)));
}
VX_LANE Bytes16 InterleaveHigh(Bytes16 a, Bytes16 b) {
  return As<Bytes16>(_mm_unpackhi_epi8(As<__m128i>(a), As<__m128i>(b)));
}
VX_LANE Words8 InterleaveLow(Words8 a, Words8 b) {
  return As<Words8>(_mm_unpacklo_epi16(As<__m128i>(a), As<__m128i>(b)));
}
VX_LANE Words8 InterleaveHigh(Words8 a, Words8 b) {
  return As<Words8>(_mm_unpackhi_epi16(As<__m128i>(a), As<__m128i>(b)));
}
VX_LANE Words8 HighProduct(Words8 a, Words8 b) {
  return As<Words8>(_mm_mulhi_epu16(As<__m128i>(a), As<__m128i>(b)));
}
VX_LANE Bytes16 Excess(Bytes16 a, Bytes16 b) {
  return As<Bytes16>(_mm_subs_epu8(As<__m128i>(a), As<__m128i>(b)));
}
VX_LANE Quads2 SumOfDifferences(Bytes16 a, Bytes16 b) {
  return As<Quads2>(_mm_sad_epu8(As<__m128i>(a), As<__m128i>(b)));
}
VX_LANE Lanes<uint8_t, 1> Excess(Lanes<uint8_t, 1> a, Lanes<uint8_t, 1> b) {
  return a > b ? a - b : Lanes<uint8_t, 1>{};
}
VX_LANE uint32_t SumOfDifferences(Lanes<uint8_t, 1> a, Lanes<uint8_t, 1> b) {
  return a[0] > b[0] ? uint32_t{a[0]} - b[0] : uint32_t{b[0]} - a[0];
}
VX_LANE Words8 SmallerSigned(Words8 a, Words8 b) {
  return As<Words8>(_mm_min_epi16(As<__m128i>(a), As<__m128i>(b)));
}
VX_LANE Bytes16 RoundedMean(Bytes16 a, Bytes16 b) {
  return As<Bytes16>(_mm_avg_epu8(As<__m128i>(a), As<__m128i>(b)));
}
VX_LANE Lanes<uint8_t, 1> RoundedMean(Lanes<uint8_t, 1> a, Lanes<uint8_t, 1> b) {
  return Lanes<uint8_t, 1>{static_cast<uint8_t>((a[0] + b[0] + 1) >> 1)};
}
VX_LANE Sums4 ProductSums(Words8 a, Words8 b) {
  return As<Sums4>(_mm_madd_epi16(As<__m128i>(a), As<__m128i>(b)));
}
VX_LANE Floats4 ToFloats(Ints4 v) { return _mm_cvtepi32_ps(As<__m128i>(v)); }
VX_LANE Ints4 Truncated(Floats4 v) { return As<Ints4>(_mm_cvttps_epi32(v)); }
VX_LANE Floats4 Root(Floats4 v) { return _mm_sqrt_ps(v); }
VX_LANE Words8 Narrow(Ints4 low, Ints4 high) {
  return As<Words8>(_mm_packs_epi32(As<__m128i>(low), As<__m128i>(high)));
}
template <int kLane>
VX_LANE Floats4 Spread(Floats4 v) {
  return _mm_shuffle_ps(v, v, _MM_SHUFFLE(kLane, kLane, kLane, kLane));
}
VX_LANE Words8 ClampedSum(Words8 a, Words8 b) {
  return As<Words8>(_mm_adds_epu16(As<__m128i>(a), As<__m128i>(b)));
}
VX_LANE Lanes<uint16_t, 1> ClampedSum(Lanes<uint16_t, 1> a, Lanes<uint16_t, 1> b) {
  return (a + b) | As<Lanes<uint16_t, 1>>(a + b < a);
}
VX_LANE Words8 HalfUp(Words8 v) { return As<Words8>(_mm_avg_epu16(As<__m128i>(v), __m128i{})); }
template <class V>
  requires(kLaneCount<V> == 1)
VX_LANE V HalfUp(V v) {
  return (v >> 1) + (v & 1);
}
VX_LANE Words8 TruncatedQuotient(Words8 n, Words8 d) {
  const Words8 none{};
  const auto low = [=](Words8 v) VX_INLINED { return ToFloats(As<Ints4>(InterleaveLow(v, none))); };
  const auto high = [=](Words8 v)
                        VX_INLINED { return ToFloats(As<Ints4>(InterleaveHigh(v, none))); };
  return Narrow(Truncated(low(n) / low(d)), Truncated(high(n) / high(d)));
}
template <class Condition>
  requires(sizeof(Condition) == 16)
VX_LANE uint32_t SetBytes(Condition condition) {
  return static_cast<uint32_t>(_mm_movemask_epi8(As<__m128i>(condition)));
}
template <class Condition>
  requires(sizeof(Condition) == 16)
VX_LANE bool AllSet(Condition condition) {
  return SetBytes(condition) == 0xFFFF;
}

#if defined(__SSSE3__)
VX_LANE Bytes16 Shuffle(Bytes16 v, Bytes16 places) {
  return As<Bytes16>(_mm_shuffle_epi8(As<__m128i>(v), As<__m128i>(places)));
}
VX_LANE Words8 MixedProductSums(Bytes16 a, Bytes16 b) {
  return As<Words8>(_mm_maddubs_epi16(As<__m128i>(a), As<__m128i>(b)));
}

// One instruction multiplies an unsigned by a signed byte and adds two neighbours.
// Samples less 128 are signed; their weights come to 255, so the sum lacks 255 x 128.
VX_LANE Words8 WeighLow(Bytes16 d, Bytes16 r, Bytes16 w) {
  const auto weights = _mm_unpacklo_epi8(As<__m128i>(w), As<__m128i>(~w));
  const auto samples = _mm_unpacklo_epi8(As<__m128i>(r ^ 128), As<__m128i>(d ^ 128));
  return As<Words8>(_mm_maddubs_epi16(weights, samples)) + 255 * 128;
}
VX_LANE Words8 WeighHigh(Bytes16 d, Bytes16 r, Bytes16 w) {
  const auto weights = _mm_unpackhi_epi8(As<__m128i>(w), As<__m128i>(~w));
  const auto samples = _mm_unpackhi_epi8(As<__m128i>(r ^ 128), As<__m128i>(d ^ 128));
  return As<Words8>(_mm_maddubs_epi16(weights, samples)) + 255 * 128;
}
#else
VX_LANE Words8 WeighLow(Bytes16 d, Bytes16 r, Bytes16 w) {
  return WidenLow(d) * WidenLow(~w) + WidenLow(r) * WidenLow(w);
}
VX_LANE Words8 WeighHigh(Bytes16 d, Bytes16 r, Bytes16 w) {
  return WidenHigh(d) * WidenHigh(~w) + WidenHigh(r) * WidenHigh(w);
}
#endif

#if defined(__AVX2__)
using Bytes32 = Lanes<uint8_t, 32>;
using Words16 = Lanes<uint16_t, 16>;

VX_LANE Words16 WidenLow(Bytes32 v) {
  return As<Words16>(_mm256_unpacklo_epi8(As<__m256i>(v), __m256i{}));
}
VX_LANE Words16 WidenHigh(Bytes32 v) {
  return As<Words16>(_mm256_unpackhi_epi8(As<__m256i>(v), __m256i{}));
}
VX_LANE Bytes32 Narrow(Words16 low, Words16 high) {
  return As<Bytes32>(_mm256_packus_epi16(As<__m256i>(low), As<__m256i>(high)));
}
VX_LANE Words16 HighProduct(Words16 a, Words16 b) {
  return As<Words16>(_mm256_mulhi_epu16(As<__m256i>(a), As<__m256i>(b)));
}
VX_LANE Words16 WeighLow(Bytes32 d, Bytes32 r, Bytes32 w) {
  const auto weights = _mm256_unpacklo_epi8(As<__m256i>(w), As<__m256i>(~w));
  const auto samples = _mm256_unpacklo_epi8(As<__m256i>(r ^ 128), As<__m256i>(d ^ 128));
  return As<Words16>(_mm256_maddubs_epi16(weights, samples)) + 255 * 128;
}
VX_LANE Words16 WeighHigh(Bytes32 d, Bytes32 r, Bytes32 w) {
  const auto weights = _mm256_unpackhi_epi8(As<__m256i>(w), As<__m256i>(~w));
  const auto samples = _mm256_unpackhi_epi8(As<__m256i>(r ^ 128), As<__m256i>(d ^ 128));
  return As<Words16>(_mm256_maddubs_epi16(weights, samples)) + 255 * 128;
}
VX_LANE Words16 HalfUp(Words16 v) {
  return As<Words16>(_mm256_avg_epu16(As<__m256i>(v), __m256i{}));
}
VX_LANE Words16 TruncatedQuotient(Words16 n, Words16 d) {
  const auto lowFloats = [](Words16 v) VX_INLINED {
    return _mm256_cvtepi32_ps(_mm256_unpacklo_epi16(As<__m256i>(v), __m256i{}));
  };
  const auto highFloats = [](Words16 v) VX_INLINED {
    return _mm256_cvtepi32_ps(_mm256_unpackhi_epi16(As<__m256i>(v), __m256i{}));
  };
  const __m256i low = _mm256_cvttps_epi32(_mm256_div_ps(lowFloats(n), lowFloats(d)));
  const __m256i high = _mm256_cvttps_epi32(_mm256_div_ps(highFloats(n), highFloats(d)));
  return As<Words16>(_mm256_packs_epi32(low, high));
}
template <class Condition>
  requires(sizeof(Condition) == 32)
VX_LANE bool AllSet(Condition condition) {
  return _mm256_movemask_epi8(As<__m256i>(condition)) == -1;
}
#endif

}  // namespace vantrix
