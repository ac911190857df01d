// Registers made of what lies in several places.
#pragma once

#include "common/lane_ops.h"
#include "common/unroll.h"

namespace vantrix {

// kCount registers of four bytes from each of four places: the first four of each, the
// next four of each, and so on. A place is `at` bytes past `base`.
template <int kCount>
struct Gathered {
  Sums4 units[kCount];
};
template <int kCount>
VX_LANE Gathered<kCount> Gather(const uint8_t* base, const uint32_t* at) {
  const auto low = [](__m128i a, __m128i b) VX_INLINED { return _mm_unpacklo_epi32(a, b); };
  const auto high = [](__m128i a, __m128i b) VX_INLINED { return _mm_unpackhi_epi32(a, b); };
  const auto firsts = [](__m128i ab, __m128i cd)
                          VX_INLINED { return As<Sums4>(_mm_unpacklo_epi64(ab, cd)); };
  const auto seconds = [](__m128i ab, __m128i cd)
                           VX_INLINED { return As<Sums4>(_mm_unpackhi_epi64(ab, cd)); };
  const auto load = [=](int i) VX_INLINED {
    if constexpr (kCount == 1)
      return _mm_cvtsi32_si128(Load<int32_t>(base + at[i]));
    else if constexpr (kCount == 2)
      return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(base + at[i]));
    else
      return Load<__m128i>(base + at[i]);
  };
  const __m128i a = load(0), b = load(1), c = load(2), d = load(3);
  const __m128i ab = low(a, b), cd = low(c, d);
  if constexpr (kCount == 1)
    return {firsts(ab, cd)};
  else if constexpr (kCount == 2)
    return {firsts(ab, cd), seconds(ab, cd)};
  else
    return {firsts(ab, cd), seconds(ab, cd), firsts(high(a, b), high(c, d)),
            seconds(high(a, b), high(c, d))};
}

// Two bytes from each of eight places: place(i) is the address of the first.
template <class Place>
VX_LANE Words8 GatherPairs(Place place) {
  __m128i pairs{};
  const auto insert = [&]<int i>(std::integral_constant<int, i>) VX_INLINED {
    pairs = _mm_insert_epi16(pairs, Load<int16_t>(place(i)), i);
  };
  [&]<int... i>(std::integer_sequence<int, i...>) VX_INLINED {
    (insert(std::integral_constant<int, i>{}), ...);
  }(std::make_integer_sequence<int, 8>{});
  return As<Words8>(pairs);
}

// The same from as many places as V has lanes.
template <class V, class Place>
VX_LANE V GatherAllPairs(Place place) {
  if constexpr (sizeof(V) == 16) {
    return GatherPairs(place);
  } else {
    using HalfOfV = decltype(Half<0>(V{}));
    return Join(GatherAllPairs<HalfOfV>(place), GatherAllPairs<HalfOfV>([=](int i) VX_INLINED {
                  return place(kLaneCount<HalfOfV> + i);
                }));
  }
}

}  // namespace vantrix
