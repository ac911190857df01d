// The operations that move lanes, widen them or narrow them, for every width of register.
//
//   InterleaveLow, -High     the lanes of a and b in turn, from their low or their high halves
//   InterleaveInMemoryOrder  all lanes of a and b in turn, as two registers in memory order
//   WidenLow, -High          8-bit lanes to 16-bit ones, zero-extended; together all of v, in the
//                            order in which Narrow takes them
//   Narrow                   signed 16-bit lanes to 8-bit ones, clamped to 0..255; signed 32-bit
//                            lanes to signed 16-bit ones, clamped. Undoes WidenLow and WidenHigh
//   NarrowUnsigned           signed 32-bit lanes to unsigned 16-bit ones, clamped; lanes as Narrow
//   InMemoryOrder            puts in memory order what Narrow made of two registers that follow one
//                            another in memory, or, in two steps, of four
//   NarrowInMemoryOrder      the same of two registers that follow one another, narrowed into one
//   WidenHalf                half a register of 8-bit lanes to a register of 16-bit ones,
//                            zero-extended, in memory order; NarrowToHalf undoes it
//   Twice                    each lane of half a register of bytes two times, in memory order
//   LoadFirst                kBytes bytes of memory (4, 8 or 16), then zeros
//   InEveryGroup             one group, repeated in all groups of a register
//   Spread                   one lane of each group, in all lanes of the group
//   Exchanged                lanes i and i ^ kMask, exchanged. If kMask is a power of two, lanes so
//                            far apart; if kMask + 1 is, each run of kMask + 1 lanes is reversed
//   ByBit                    lanes of a, but of b where bit kBit of the lane's number is set
//
// A register wider than 16 bytes is 16-byte groups side by side. Operations move lanes within their
// group, so that one undoes the other in every width. The exceptions are operations in memory
// order, InEveryGroup, and Exchanged for a mask of a group or more.
#pragma once

#include "common/registers.h"

namespace vantrix {

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

template <int kLane, class V>
VX_LANE V Spread(V v) {
  constexpr size_t kGroup = 16 / sizeof(LaneOf<V>);
  return [=]<size_t... i>(std::index_sequence<i...>) VX_INLINED {
    return __builtin_shufflevector(v, v, int{i / kGroup * kGroup + kLane}...);
  }(std::make_index_sequence<kLaneCount<V>>{});
}
template <int kMask, class V>
VX_LANE V Exchanged(V v) {
  return [=]<size_t... i>(std::index_sequence<i...>) VX_INLINED {
    return __builtin_shufflevector(v, v, int{i ^ kMask}...);
  }(std::make_index_sequence<kLaneCount<V>>{});
}
template <int kBit, class V>
VX_LANE V ByBit(V a, V b) {
  return [=]<size_t... i>(std::index_sequence<i...>) VX_INLINED {
    return __builtin_shufflevector(a, b, int{(i & kBit) != 0 ? i + sizeof...(i) : i}...);
  }(std::make_index_sequence<kLaneCount<V>>{});
}

}  // namespace vantrix
