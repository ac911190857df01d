// Registers gathered from several addresses.
#pragma once

#include "common/lane_ops.h"
#include "common/unroll.h"

namespace vantrix {

// Returns a register whose group i is loaded from address(i): kBytes bytes (16, 8 or 4), then
// zeros.
template <class V, int kBytes = 16, class Address>
VX_LANE V LoadGroups(Address address) {
  if constexpr (sizeof(V) > 16) {
    constexpr int kGroups = sizeof(HalfOf<V>) / 16;
    return Join(LoadGroups<HalfOf<V>, kBytes>(address),
                LoadGroups<HalfOf<V>, kBytes>([=](int group)
                                                  VX_INLINED { return address(kGroups + group); }));
  } else {
    return LoadFirst<V, kBytes>(address(0));
  }
}
// Returns a register with the same 16 bytes in each group.
template <class V, class T>
VX_LANE V LoadIntoGroups(const T* from) {
  const auto group = Load<Lanes<uint64_t, 2>>(from);
  return [=]<size_t... i>(std::index_sequence<i...>) VX_INLINED {
    return As<V>(__builtin_shufflevector(group, group, int{i % 2}...));
  }(std::make_index_sequence<sizeof(V) / 8>{});
}

// Loads kCount units of four bytes from as many addresses as S has
// 32-bit lanes: the first unit of each in one register, the second of
// each in the next, and so on. Addresses are `at` bytes after `base`.
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
    return As<S>(InterleaveLow(As<U64<S>>(ab), As<U64<S>>(cd)));
  };
  const auto seconds = [](S ab, S cd) VX_INLINED {
    return As<S>(InterleaveHigh(As<U64<S>>(ab), As<U64<S>>(cd)));
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

// Loads two bytes from each of as many addresses as V has 16-bit lanes: address(i) is lane i's.
template <class V, class Address>
VX_LANE V GatherPairs(Address address) {
  if constexpr (sizeof(V) == 16) {
    V pairs{};
    Repeat<kLaneCount<V>>([&](int i) VX_INLINED { pairs[i] = Load<uint16_t>(address(i)); });
    return pairs;
  } else {
    return Join(GatherPairs<HalfOf<V>>(address), GatherPairs<HalfOf<V>>([=](int i) VX_INLINED {
                  return address(kLaneCount<HalfOf<V>> + i);
                }));
  }
}

}  // namespace vantrix
