// Registers made of what lies in several places.
#pragma once

#include "common/lane_ops.h"
#include "common/unroll.h"

namespace vantrix {

// A register whose group i is loaded from place(i): from the start of the group on kBytes
// bytes, 16, 8 or 4, and zeros behind them.
template <class V, int kBytes = 16, class Place>
VX_LANE V LoadGroups(Place place) {
  if constexpr (sizeof(V) > 16) {
    using HalfOf = Lanes<LaneOf<V>, kLaneCount<V> / 2>;
    constexpr int kGroups = sizeof(HalfOf) / 16;
    return Join(
        LoadGroups<HalfOf, kBytes>(place),
        LoadGroups<HalfOf, kBytes>([=](int group) VX_INLINED { return place(kGroups + group); }));
  } else if constexpr (kBytes == 16) {
    return Load<V>(place(0));
  } else if constexpr (kBytes == 8) {
    return As<V>(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(place(0))));
  } else {
    return As<V>(_mm_cvtsi32_si128(Load<int32_t>(place(0))));
  }
}
// A register with the same 16 bytes in each group.
template <class V, class T>
VX_LANE V LoadIntoGroups(const T* from) {
  const auto group = Load<Lanes<uint64_t, 2>>(from);
  return [=]<size_t... i>(std::index_sequence<i...>) VX_INLINED {
    return As<V>(__builtin_shufflevector(group, group, int{i % 2}...));
  }(std::make_index_sequence<sizeof(V) / 8>{});
}

// kCount registers of four bytes, a 32-bit lane S each, from as many places as S has lanes:
// the first four of each, the next four of each, and so on. A place is `at` bytes past
// `base`.
template <class S, int kCount>
struct Gathered {
  S units[kCount];
};
template <class S, int kCount>
VX_LANE Gathered<S, kCount> Gather(const uint8_t* base, const uint32_t* at) {
  static_assert(kCount == 1 || kCount == 2 || kCount == 4);
  const auto load = [=](int i) VX_INLINED {
    return LoadGroups<S, 4 * kCount>([=](int group)
                                         VX_INLINED { return base + at[4 * group + i]; });
  };
  const auto firsts = [](S ab, S cd) VX_INLINED {
    return As<S>(InterleaveLow(As<Quads<S>>(ab), As<Quads<S>>(cd)));
  };
  const auto seconds = [](S ab, S cd) VX_INLINED {
    return As<S>(InterleaveHigh(As<Quads<S>>(ab), As<Quads<S>>(cd)));
  };
  const S a = load(0), b = load(1), c = load(2), d = load(3);
  const S ab = InterleaveLow(a, b), cd = InterleaveLow(c, d);
  if constexpr (kCount == 1) {
    return {firsts(ab, cd)};
  } else if constexpr (kCount == 2) {
    return {firsts(ab, cd), seconds(ab, cd)};
  } else {
    const S highAB = InterleaveHigh(a, b), highCD = InterleaveHigh(c, d);
    return {firsts(ab, cd), seconds(ab, cd), firsts(highAB, highCD), seconds(highAB, highCD)};
  }
}

// Two bytes from each of eight places: place(i) is the address of the first.
template <class Place>
VX_LANE Lanes<uint16_t, 8> GatherPairs(Place place) {
  __m128i pairs{};
  const auto insert = [&]<int i>(std::integral_constant<int, i>) VX_INLINED {
    pairs = _mm_insert_epi16(pairs, Load<int16_t>(place(i)), i);
  };
  [&]<int... i>(std::integer_sequence<int, i...>) VX_INLINED {
    (insert(std::integral_constant<int, i>{}), ...);
  }(std::make_integer_sequence<int, 8>{});
  return As<Lanes<uint16_t, 8>>(pairs);
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
