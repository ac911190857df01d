// Bodies of differences.h, for the units that instantiate them.
#pragma once

#include "common/lane_ops.h"
#include "suites/filter/differences.h"

namespace vantrix {
namespace {

constexpr intptr_t kBlockBytes = 128;

template <class Form>
using Row = Lanes<uint8_t, Form::kBytes>;

// The sum of difference(x) over the rows of a block.
template <class Form, class RowSum>
VX_INLINE uint32_t SumOverBlock(RowSum rowSum) {
  uint32_t sum = 0;
  if constexpr (Form::kBytes == 1) {
    for (intptr_t x = 0; x < kBlockBytes; ++x) sum += rowSum(x);
  } else {
    Quads2 sums{};
    for (intptr_t x = 0; x < kBlockBytes; x += Form::kBytes) sums += rowSum(x);
    sum = static_cast<uint32_t>(sums[0] + sums[1]);
  }
  return sum;
}

}  // namespace

template <class Form>
uint32_t FilterBlockSAD128(const uint8_t* a, const uint8_t* b) {
  using V = Row<Form>;
  return SumOverBlock<Form>(
      [=](intptr_t x) VX_INLINED { return SumOfDifferences(Load<V>(a + x), Load<V>(b + x)); });
}

template <class Form>
uint32_t FilterBlockSignedSAD128(const uint8_t* a, const uint8_t* b, const uint8_t* direction) {
  using V = Row<Form>;
  return SumOverBlock<Form>([=](intptr_t x) VX_INLINED {
    const V va = Load<V>(a + x), vb = Load<V>(b + x), d = Load<V>(direction + x);
    return SumOfDifferences(V(~d & Excess(va, vb)), V(d & Excess(vb, va)));
  });
}

}  // namespace vantrix
