// What the box averages share: the average of a sum, and the sums of columns.
#pragma once

#include <bit>

#include "common/rounding.h"
#include "common/unroll.h"

namespace vantrix {

// The average by its truncated reciprocal: (sum + half) x reciprocal >> 24, which for
// any count of 8-bit samples is below 2^32 before the shift.
//
// Up to kWordCount samples it takes no lane of 32 bits: the halves of the reciprocal give
// one a low and one a high product, and sum + half, both products and the sum of the two
// stay below 65409.
struct Average {
  static constexpr int32_t kWordCount = 256;

  uint32_t reciprocal, half;

  VX_INLINE explicit Average(int64_t count)
      : reciprocal(static_cast<uint32_t>(16777216 / count)),
        half(static_cast<uint32_t>(count >> 1)) {}

  VX_INLINE uint8_t Of(uint32_t sum) const {
    return static_cast<uint8_t>((sum + half) * reciprocal >> 24);
  }
  // The same in each lane: of 32 bits, or, up to kWordCount samples, of 16.
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
  // The same where the count is known while compiling: 0 is any. The reciprocal of a power
  // of two is exact, so that a shift divides.
  template <int kCount, class V>
    requires(sizeof(LaneOf<V>) == 2)
  VX_INLINE V OfCount(V sums) const {
    if constexpr (std::has_single_bit(unsigned{kCount}))
      return (sums + uint16_t{kCount / 2}) >> std::countr_zero(unsigned{kCount});
    else
      return Of(sums);
  }
};

// The sums of a register of columns, those of the even and of the odd ones, over at most 256
// rows; kRows of them, or `rows` where that is 0. read(row) gives a row's samples.
//
// Samples are added two to a lane, as 256 odd + even, and the odd ones alone as well:
// what the one sum has above 256 times the other, modulo 65536, are the even ones.
template <class V>
struct ColumnSums {
  Words<V> even, odd;
};
template <class V, int kRows = 0, class Read>
VX_INLINE ColumnSums<V> SumColumns(const uint8_t* first, intptr_t stride, int32_t rows, Read read) {
  Words<V> both{}, odd{};
  const auto add = [&](int32_t k) VX_INLINED {
    const auto samples = As<Words<V>>(read(first + k * stride));
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

// The sums of pairs of neighbouring columns in a register, over at most 128 rows.
template <class V, int kRows = 0, class Read>
VX_INLINE Words<V> SumPairs(const uint8_t* first, intptr_t stride, int32_t rows, Read read) {
#if defined(__SSSE3__)
  const V ones = Fill<V>(1);
  Words<V> sums{};
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
