// A register as instructions take it, and its parts.
//
// The operations on lanes name an instruction for each width. If a register is wider than the
// unit's instructions, they work on its halves. So the text of a wide form can be compiled, and
// tested, for an older processor.
#pragma once

#include <utility>

#include "common/lanes.h"

namespace vantrix {

// The widest register that the unit's instructions take. Each unit has its own.
#if defined(__AVX512BW__)
static constexpr size_t kWidestRegister = 64;
#elif defined(__AVX2__)
static constexpr size_t kWidestRegister = 32;
#else
static constexpr size_t kWidestRegister = 16;
#endif

// The bits of a register, as intrinsics take them.
template <class V>
VX_LANE auto Bits(V v) {
  if constexpr (sizeof(V) == 16)
    return As<__m128i>(v);
  else if constexpr (sizeof(V) == 32)
    return As<__m256i>(v);
  else
    return As<__m512i>(v);
}

// The low (0) or the high half (1) of a register.
template <int kIndex, class V>
VX_LANE auto Half(V v) {
  constexpr size_t kCount = kLaneCount<V> / 2;
  return [=]<size_t... i>(std::index_sequence<i...>) VX_INLINED {
    return __builtin_shufflevector(v, v, int{kIndex * kCount + i}...);
  }(std::make_index_sequence<kCount>{});
}
// Two registers as the halves of one.
template <class V>
VX_LANE auto Join(V low, V high) {
  return [=]<size_t... i>(std::index_sequence<i...>) VX_INLINED {
    return __builtin_shufflevector(low, high, int{i}...);
  }(std::make_index_sequence<2 * kLaneCount<V>>{});
}

// Loads and stores a row of `count` samples, shorter than a register, as
// its first and its last kEnd bytes in one register. The two ends may
// overlap. The bytes in both are then stored twice, with the same value.
template <class V, int kEnd, class T>
VX_LANE V LoadEnds(const T* from, intptr_t count) {
  const T* const last = Below(from + count, -kEnd);
  if constexpr (kEnd == 16) {
    return Join(Load<HalfOf<V>>(from), Load<HalfOf<V>>(last));
  } else {
    static_assert(kEnd == 8 || kEnd == 4 || kEnd == 2 || kEnd == 1);
    using Small = std::conditional_t<kEnd == 2, uint16_t, uint8_t>;
    using Middle = std::conditional_t<kEnd == 4, uint32_t, Small>;
    using End = std::conditional_t<kEnd == 8, uint64_t, Middle>;
    Lanes<End, sizeof(V) / kEnd> ends{};
    ends[0] = Load<End>(from);
    ends[1] = Load<End>(last);
    return As<V>(ends);
  }
}
template <int kEnd, class T, class V>
VX_LANE void StoreEnds(T* to, intptr_t count, V lanes) {
  void* const first = to;
  void* const last = Below(to + count, -kEnd);
  __builtin_memcpy(first, &lanes, kEnd);
  __builtin_memcpy(last, reinterpret_cast<const uint8_t*>(&lanes) + kEnd, kEnd);
}

// Applies one of three operations, for registers of 16, 32 and 64 bytes: the one for V's width.
template <class Of16, class Of32, class Of64, class V, class... More>
VX_LANE auto ByWidth(Of16 of16, Of32 of32, Of64 of64, V v, More... more) {
  if constexpr (sizeof(V) > kWidestRegister)
    return Join(ByWidth(of16, of32, of64, Half<0>(v), Half<0>(more)...),
                ByWidth(of16, of32, of64, Half<1>(v), Half<1>(more)...));
  else if constexpr (sizeof(V) == 16)
    return of16(Bits(v), Bits(more)...);
  else if constexpr (sizeof(V) == 32)
    return of32(Bits(v), Bits(more)...);
  else
    return of64(Bits(v), Bits(more)...);
}

}  // namespace vantrix
