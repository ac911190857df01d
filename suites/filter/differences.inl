// Bodies of differences.h, for the units that instantiate them.
#pragma once

#include "common/lane_ops.h"
#include "suites/filter/differences.h"

namespace vantrix {
namespace {

constexpr intptr_t kBlockBytes = 128;

template <class V>
VX_INLINE uint32_t SumOfLanes(V sums) {
  if constexpr (sizeof(V) > 16)
    return SumOfLanes(Half<0>(sums) + Half<1>(sums));
  else
    return static_cast<uint32_t>(sums[0] + sums[1]);
}

// Adds up difference(x) over the registers V of a block.
template <class V, class Difference>
VX_INLINE uint32_t SumOverBlock(Difference difference) {
  auto sums = difference(0);
#pragma GCC unroll 8
  for (intptr_t x = sizeof(V); x < kBlockBytes; x += sizeof(V)) sums += difference(x);
  if constexpr (kIsOneSample<V>)
    return sums;
  else
    return SumOfLanes(sums);
}

}  // namespace

template <class Form>
uint32_t FilterBlockSAD128(const uint8_t* a, const uint8_t* b) {
  using V = Register<uint8_t, Form>;
  return SumOverBlock<V>(
      [=](intptr_t x) VX_INLINED { return SumOfDifferences(Load<V>(a + x), Load<V>(b + x)); });
}

template <class Form>
uint32_t FilterBlockSignedSAD128(const uint8_t* a, const uint8_t* b, const uint8_t* direction) {
  using V = Register<uint8_t, Form>;
  return SumOverBlock<V>([=](intptr_t x) VX_INLINED {
    const V va = Load<V>(a + x), vb = Load<V>(b + x), d = Load<V>(direction + x);
    return SumOfDifferences(V(~d & Excess(va, vb)), V(d & Excess(vb, va)));
  });
}

}  // namespace vantrix
