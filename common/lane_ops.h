// The operations on lanes that have no operator, for every width of register.
//
//   InterleaveLow, -High     the lanes of a and b in turn, from their low or their high halves
//   InterleaveInMemoryOrder  all lanes of a and b in turn, as two registers in memory order
//   WidenLow, -High          8-bit lanes to 16-bit ones, zero-extended; together all of v, in the
//                            order in which Narrow takes them
//   Narrow                   signed 16-bit lanes to 8-bit ones, clamped to 0..255; signed 32-bit
//                            lanes to signed 16-bit ones, clamped. Undoes WidenLow and WidenHigh
//   NarrowUnsigned           signed 32-bit lanes to unsigned 16-bit ones, clamped; lanes as Narrow
//   WeighLow, -High          d (255 - w) + r w in 16-bit lanes, from halves as for Widen
//   InMemoryOrder            puts in memory order what Narrow made of two registers that follow one
//                            another in memory, or, in two steps, of four
//   NarrowInMemoryOrder      the same of two registers that follow one another, narrowed into one
//   WidenHalf                half a register of 8-bit lanes to a register of 16-bit ones,
//                            zero-extended, in memory order; NarrowToHalf undoes it
//   Twice                    each lane of half a register of bytes two times, in memory order
//   LoadFirst                kBytes bytes of memory (4, 8 or 16), then zeros
//   InEveryGroup             one group, repeated in all groups of a register
//   HighProduct              the high half of each 32-bit product
//   Excess                   max(a - b, 0)
//   SumOfDifferences         the sum of |a - b| over the eight bytes of each 64-bit lane
//   RoundedMean              (a + b + 1) / 2
//   ProductSums              a[2 i] b[2 i] + a[2 i + 1] b[2 i + 1] of signed 16-bit lanes. It wraps
//                            only if all four are -32768
//   MixedProductSums         the same of unsigned bytes a and signed bytes b, if sums fit (SSSE3)
//   ToFloats, Truncated      32-bit integers to single precision and back
//   Root                     the square root
//   Spread                   one lane of each group, in all lanes of the group
//   Exchanged                lanes that are kDistance apart, exchanged
//   ClampedSum               min(a + b, 65535)
//   HalfUp                   v / 2, halves rounded up
//   TruncatedQuotient        n / d by single-precision division, for quotients up to 32767
//   SetBytes                 one bit for each byte: whether the comparison holds in its lane
//   AllSet, NoneSet          whether the comparison holds in every lane, or in none
//   MostlySomeSet            whether it holds in any lane, if it mostly does
//   IsNegative, IsLight      whether the highest bit is set
//   Opaque                   the same register, of which the compiler knows nothing
//
// A register wider than 16 bytes is 16-byte groups side by side. Operations move lanes within their
// group, so that one undoes the other in every width. The exceptions are operations in memory
// order, InEveryGroup, and Exchanged for a distance of a group or more.
#pragma once

#include "common/registers.h"

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

template <bool kHigh, class V, size_t... i>
VX_LANE V Interleave(V a, V b, std::index_sequence<i...>) {
  constexpr size_t kGroup = 16 / sizeof(LaneOf<V>), kStart = kHigh ? kGroup / 2 : 0;
  return __builtin_shufflevector(
      a, b, int{i / kGroup * kGroup + kStart + i % kGroup / 2 + i % 2 * sizeof...(i)}...);
}
template <class V>
VX_LANE V InterleaveLow(V a, V b) {
  return Interleave<false>(a, b, std::make_index_sequence<kLaneCount<V>>{});
}
template <class V>
VX_LANE V InterleaveHigh(V a, V b) {
  return Interleave<true>(a, b, std::make_index_sequence<kLaneCount<V>>{});
}
template <class V>
VX_LANE U16<V> WidenLow(V v) {
  return As<U16<V>>(InterleaveLow(v, V{}));
}
template <class V>
VX_LANE U16<V> WidenHigh(V v) {
  return As<U16<V>>(InterleaveHigh(v, V{}));
}

template <class V>
  requires(sizeof(LaneOf<V>) == 2)
VX_LANE U8<V> Narrow(V low, V high) {
  return As<U8<V>>(ByWidth([](auto a, auto b) VX_INLINED { return _mm_packus_epi16(a, b); },
                           [](auto a, auto b) VX_INLINED { return _mm256_packus_epi16(a, b); },
                           [](auto a, auto b) VX_INLINED { return _mm512_packus_epi16(a, b); }, low,
                           high));
}
template <class V>
  requires(sizeof(LaneOf<V>) == 4)
VX_LANE U16<V> Narrow(V low, V high) {
  return As<U16<V>>(ByWidth([](auto a, auto b) VX_INLINED { return _mm_packs_epi32(a, b); },
                            [](auto a, auto b) VX_INLINED { return _mm256_packs_epi32(a, b); },
                            [](auto a, auto b) VX_INLINED { return _mm512_packs_epi32(a, b); }, low,
                            high));
}

template <class V>
VX_LANE U16<V> NarrowUnsigned(V low, V high) {
#if defined(__SSE4_1__)
  return As<U16<V>>(ByWidth([](auto a, auto b) VX_INLINED { return _mm_packus_epi32(a, b); },
                            [](auto a, auto b) VX_INLINED { return _mm256_packus_epi32(a, b); },
                            [](auto a, auto b) VX_INLINED { return _mm512_packus_epi32(a, b); },
                            low, high));
#else
  return Narrow(low - 32768, high - 32768) ^ 32768;
#endif
}

template <int kRegisters = 2, class V>
VX_LANE V InMemoryOrder(V v) {
  static_assert(kRegisters == 2 || kRegisters == 4);
  if constexpr (sizeof(V) == 16) {
    return v;
  } else {
    constexpr size_t kGroups = sizeof(V) / 16;
    return [=]<size_t... i>(std::index_sequence<i...>) VX_INLINED {
      const auto parts = As<std::conditional_t<kRegisters == 2, U64<V>, U32<V>>>(v);
      return As<V>(
          __builtin_shufflevector(parts, parts, int{i % kGroups * kRegisters + i / kGroups}...));
    }(std::make_index_sequence<kRegisters * kGroups>{});
  }
}

template <class V>
struct TwoRegisters {
  V first, second;
};
template <class V>
VX_LANE TwoRegisters<V> InterleaveInMemoryOrder(V a, V b) {
  constexpr size_t kCount = kLaneCount<V>, kHalf = kCount / 2;
  return [=]<size_t... i>(std::index_sequence<i...>) VX_INLINED {
    return TwoRegisters<V>{__builtin_shufflevector(a, b, int{i / 2 + i % 2 * kCount}...),
                           __builtin_shufflevector(a, b, int{kHalf + i / 2 + i % 2 * kCount}...)};
  }(std::make_index_sequence<kCount>{});
}

template <class V>
VX_LANE auto NarrowInMemoryOrder(V first, V second) {
  return InMemoryOrder(Narrow(first, second));
}
template <class H>
VX_LANE auto WidenHalf(H half) {
  return __builtin_convertvector(half, Lanes<uint16_t, sizeof(H)>);
}
template <class V>
VX_LANE auto NarrowToHalf(V v) {
  return Half<0>(NarrowInMemoryOrder(v, v));
}
template <class H>
VX_LANE auto Twice(H half) {
  return [=]<size_t... i>(std::index_sequence<i...>) VX_INLINED {
    return __builtin_shufflevector(half, half, int{i / 2}...);
  }(std::make_index_sequence<2 * sizeof(H)>{});
}

template <class V, int kBytes>
VX_LANE V LoadFirst(const void* from) {
  static_assert(sizeof(V) == 16);
  if constexpr (kBytes == 16)
    return Load<V>(from);
  else if constexpr (kBytes == 8)
    return As<V>(_mm_loadl_epi64(static_cast<const __m128i*>(from)));
  else
    return As<V>(_mm_cvtsi32_si128(Load<int32_t>(from)));
}

template <class V>
VX_LANE V InEveryGroup(Group<LaneOf<V>> group) {
  return [=]<size_t... i>(std::index_sequence<i...>) VX_INLINED {
    return __builtin_shufflevector(group, group, int{i % kLaneCount<Group<LaneOf<V>>>}...);
  }(std::make_index_sequence<kLaneCount<V>>{});
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
template <int kLane, class V>
VX_LANE V Spread(V v) {
  constexpr size_t kGroup = 16 / sizeof(LaneOf<V>);
  return [=]<size_t... i>(std::index_sequence<i...>) VX_INLINED {
    return __builtin_shufflevector(v, v, int{i / kGroup * kGroup + kLane}...);
  }(std::make_index_sequence<kLaneCount<V>>{});
}
template <int kDistance, class V>
VX_LANE V Exchanged(V v) {
  return [=]<size_t... i>(std::index_sequence<i...>) VX_INLINED {
    return __builtin_shufflevector(v, v, int{i ^ kDistance}...);
  }(std::make_index_sequence<kLaneCount<V>>{});
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
