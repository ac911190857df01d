// What the box averages share: averages of sums, and sums of columns.
#pragma once

#include <bit>

#include "common/lane_ops.h"
#include "common/unroll.h"

namespace vantrix {

// The average by the truncated reciprocal: (sum + half) x reciprocal >> 24. Before the shift it is
// below 2^32 for any count of 8-bit samples.
//
// Averages of up to kCountIn16Bits samples fit in 16-bit lanes: one half of the reciprocal gives a
// low product, the other a high one. sum + half, both products and their sum stay below 65409.
struct Average {
  static constexpr int32_t kCountIn16Bits = 256;

  uint32_t reciprocal, half;

  VX_INLINE explicit Average(int64_t count)
      : reciprocal(static_cast<uint32_t>(16777216 / count)),
        half(static_cast<uint32_t>(count >> 1)) {}

  VX_INLINE uint8_t Of(uint32_t sum) const {
    return static_cast<uint8_t>((sum + half) * reciprocal >> 24);
  }
  // The same in each lane, of 32 bits, or of 16 for up to kCountIn16Bits samples.
  template <class V>
    requires(sizeof(LaneOf<V>) == 4)
  VX_INLINE V Of(V sums) const {
    return (sums + half) * reciprocal >> 24;
  }
  template <class V>
    requires(sizeof(LaneOf<V>) == 2)
  VX_INLINE V Of(V sums) const {
    const V all = sums + static_cast<uint16_t>(half);
    const V product = all * static_cast<uint16_t>(reciprocal >> 16) +
                      HighProduct(all, Fill<V>(static_cast<uint16_t>(reciprocal)));
    return product >> 8;
  }
  // The same if the count is known at compile time; 0 stands for any. For a power of two the
  // reciprocal is exact, so a shift divides.
  template <int kCount, class V>
    requires(sizeof(LaneOf<V>) == 2)
  VX_INLINE V OfCount(V sums) const {
    if constexpr (std::has_single_bit(unsigned{kCount}))
      return (sums + uint16_t{kCount / 2}) >> std::countr_zero(unsigned{kCount});
    else
      return Of(sums);
  }
};

// Sums a register of columns, the even and the odd ones apart, over at most 256 rows: kRows of
// them, or `rows` if that is 0. read(row) loads the samples of a row.
//
// 16-bit lanes are added whole, as 256 odd + even, and their odd samples alone. The first sum minus
// 256 times the second, modulo 65536, is the sum of the even samples.
template <class V>
struct ColumnSums {
  U16<V> even, odd;
};
template <class V, int kRows = 0, class Read>
VX_INLINE ColumnSums<V> SumColumns(const uint8_t* first, intptr_t stride, int32_t rows, Read read) {
  U16<V> both{}, odd{};
  const auto add = [&](int32_t k) VX_INLINED {
    const auto samples = As<U16<V>>(read(first + k * stride));
    both += samples;
    odd += samples >> 8;
  };
  Repeat<kRows>(add);
  if constexpr (kRows == 0) {
#pragma GCC unroll 1
    for (; rows >= 2; rows -= 2, first += 2 * stride) add(0), add(1);
    if (rows > 0) add(0);
  }
  return {both - (odd << 8), odd};
}

// Sums pairs of neighbouring columns, over at most 128 rows.
template <class V, int kRows = 0, class Read>
VX_INLINE U16<V> SumPairs(const uint8_t* first, intptr_t stride, int32_t rows, Read read) {
#if defined(__SSSE3__)
  const V ones = Fill<V>(1);
  U16<V> sums{};
  const auto add = [&](int32_t k)
                       VX_INLINED { sums += MixedProductSums(read(first + k * stride), ones); };
  Repeat<kRows>(add);
  if constexpr (kRows == 0)
    for (int32_t k = 0; k < rows; ++k) add(k);
  return sums;
#else
  const ColumnSums<V> sums = SumColumns<V, kRows>(first, stride, rows, read);
  return sums.even + sums.odd;
#endif
}

}  // namespace vantrix
