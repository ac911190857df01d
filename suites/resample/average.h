// What the box averages share: the average of a sum, and the sums of columns.
#pragma once

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
  VX_INLINE Sums4 Of(Sums4 sums) const { return (sums + half) * reciprocal >> 24; }
  VX_INLINE Words8 Of(Words8 sums) const {
    const Words8 all = sums + static_cast<uint16_t>(half);
    const Words8 product = all * static_cast<uint16_t>(reciprocal >> 16) +
                           HighProduct(all, Fill<Words8>(static_cast<uint16_t>(reciprocal)));
    return product >> 8;
  }
};

// The sums of sixteen columns, those of the even and of the odd ones, over at most 256
// rows; kRows of them, or `rows` where that is 0. read(row) gives a row's samples.
//
// Samples are added two to a lane, as 256 odd + even, and the odd ones alone as well:
// what the one sum has above 256 times the other, modulo 65536, are the even ones.
struct ColumnSums {
  Words8 even, odd;
};
template <int kRows = 0, class Read>
VX_INLINE ColumnSums SumColumns(const uint8_t* first, intptr_t stride, int32_t rows, Read read) {
  Words8 both{}, odd{};
  const auto add = [&](int32_t k) VX_INLINED {
    const auto samples = As<Words8>(read(first + k * stride));
    both += samples;
    odd += samples >> 8;
  };
  Repeat<kRows>(add);
  if constexpr (kRows == 0) {
    for (; rows >= 2; rows -= 2, first += 2 * stride) add(0), add(1);
    if (rows > 0) add(0);
  }
  return {both - (odd << 8), odd};
}

// The sums of eight pairs of neighbouring columns, over at most 128 rows.
template <int kRows = 0, class Read>
VX_INLINE Words8 SumPairs(const uint8_t* first, intptr_t stride, int32_t rows, Read read) {
#if defined(__SSSE3__)
  const Bytes16 ones = Fill<Bytes16>(1);
  Words8 sums{};
  const auto add = [&](int32_t k)
                       VX_INLINED { sums += MixedProductSums(read(first + k * stride), ones); };
  Repeat<kRows>(add);
  if constexpr (kRows == 0)
    for (int32_t k = 0; k < rows; ++k) add(k);
  return sums;
#else
  const ColumnSums sums = SumColumns<kRows>(first, stride, rows, read);
  return sums.even + sums.odd;
#endif
}

}  // namespace vantrix
