// Bodies of deviation.h, for the units that instantiate them.
#pragma once

#include "common/far.h"
#include "common/overlap.h"
#include "plugin/base/suites.h"
#include "suites/filter/deviation.h"
#include "suites/filter/root.h"

namespace vantrix {
namespace {

// A strip of columns is walked downwards, with the sums of its rows in registers. After this many
// rows the next strip is taken, while the rows' cache lines are still near.
constexpr int32_t kRowsTogether = 32;

// A strip is a place of 16-bit lanes: half a register of samples, or the two ends of a short row.
template <class W>
VX_LANE W LoadWidened(Block<W> strip, const uint8_t* row) {
  return WidenHalf(Load<Lanes<uint8_t, kLaneCount<W>>>(row + strip.x));
}
template <class W>
VX_LANE void StoreNarrowed(Block<W> strip, uint8_t* row, W results) {
  Store(row + strip.x, NarrowToHalf(results));
}
template <class W, int kBytes>
VX_LANE W LoadWidened(Ends<W, kBytes> strip, const uint8_t* row) {
  return WidenLow(LoadEnds<U8<W>, kBytes / 2>(row, strip.count));
}
template <class W, int kBytes>
VX_LANE void StoreNarrowed(Ends<W, kBytes> strip, uint8_t* row, W results) {
  StoreEnds<kBytes / 2>(row, strip.count, Narrow(results, results));
}

// Sums of samples and of their squares over neighbourhoods, those of even and those of odd columns
// in 32-bit lanes of their own.
template <class I>
struct Moments {
  I evenSum, oddSum, evenSquares, oddSquares;

  VX_LANE Moments operator+(const Moments& other) const {
    return {evenSum + other.evenSum, oddSum + other.oddSum, evenSquares + other.evenSquares,
            oddSquares + other.oddSquares};
  }
};

// Sums one row over three columns. As 32-bit lanes, 16-bit samples from s[0]
// on are the pairs s[2 k], s[2 k + 1], which an even and an odd neighbourhood
// share. The even one adds s[2 k - 1], the low half of a lane from s[-1] on;
// the odd one adds s[2 k + 2], the high half of a lane from s[1] on.
template <class Strip>
VX_INLINE auto SumRow(Strip strip, const uint8_t* row) {
  using W = typename Strip::Register;
  using I = I32<W>;
  const W pairs = LoadWidened(strip, row), ones = Fill<W>(1);
  const I before = As<I>(LoadWidened(strip, row - 1)) & 0xFFFF;
  const I after = As<I>(As<U32<W>>(LoadWidened(strip, row + 1)) >> 16);
  const auto products = [](auto a, auto b)
                            VX_INLINED { return As<I>(ProductSums(As<W>(a), As<W>(b))); };
  const auto square = [=](I v) VX_INLINED { return products(v, v); };
  const I sum = products(pairs, ones), squares = products(pairs, pairs);
  return Moments<I>{sum + before, sum + after, squares + square(before), squares + square(after)};
}

template <class I>
VX_INLINE I Deviation(I sum, I squares) {
  const auto squareOfSum = As<I>(ProductSums(As<U16<I>>(sum), As<U16<I>>(sum)));
  return RootOfTwentyFirst((squares << 3) + squares - squareOfSum);
}

// In far planes a strip asks for the cache lines to the right of it: each row of a strip is on
// pages of its own.
template <bool kIsFar, class Strip>
VX_INLINE void DeviateStrip(Strip strip, const uint8_t* source, uint8_t* destination, int32_t rows,
                            intptr_t sourceStride, intptr_t destinationStride) {
  using W = typename Strip::Register;
  auto middle = SumRow(strip, source), upper = SumRow(strip, source - sourceStride) + middle;
  for (; rows > 0; --rows) {
    if constexpr (kIsFar) {
      PrefetchSoon(source + strip.x + 2 * kCacheLine);
      PrefetchSoon(destination + strip.x + 2 * kCacheLine);
    }
    source += sourceStride;
    const auto below = SumRow(strip, source), all = upper + below;
    const auto even = Deviation(all.evenSum, all.evenSquares);
    const auto odd = Deviation(all.oddSum, all.oddSquares);
    StoreNarrowed(strip, destination, As<W>(even | odd << 16));
    destination += destinationStride;
    upper = middle + below;
    middle = below;
  }
}

template <class Walk>
VX_INLINE void DeviateStrips(Walk walk, const uint8_t* source, uint8_t* destination, int32_t rows,
                             intptr_t sourceStride, intptr_t destinationStride, bool areFar) {
  for (; rows > 0; rows -= kRowsTogether) {
    const int32_t count = rows < kRowsTogether ? rows : kRowsTogether;
    walk.ForEach([=]<class Strip>(Strip strip) VX_INLINED {
      const auto deviate = [=](auto isFar) VX_INLINED {
        DeviateStrip<isFar>(strip, source, destination, count, sourceStride, destinationStride);
      };
      if constexpr (kIsWide<Strip>)
        if (areFar) return deviate(std::true_type{});
      deviate(std::false_type{});
    });
    source += kRowsTogether * sourceStride;
    destination += kRowsTogether * destinationStride;
  }
}

// Sums over a column's three samples.
struct ColumnMoments {
  int32_t sum, squares;

  VX_INLINE ColumnMoments(const uint8_t* at, intptr_t stride) {
    const int32_t a = at[-stride], b = at[0], c = at[stride];
    sum = a + b + c;
    squares = a * a + b * b + c * c;
  }
};

VX_INLINE void DeviateStrips(Singly<uint16_t> columns, const uint8_t* source, uint8_t* destination,
                             int32_t rows, intptr_t sourceStride, intptr_t destinationStride,
                             bool /*areFar*/) {
  for (; rows > 0; --rows) {
    ColumnMoments left(source - 1, sourceStride), middle(source, sourceStride);
    for (intptr_t x = 0; x < columns.count; ++x) {
      const ColumnMoments right(source + x + 1, sourceStride);
      const int32_t sum = left.sum + middle.sum + right.sum;
      const int32_t d = 9 * (left.squares + middle.squares + right.squares) - sum * sum;
      const int32_t quotient = d / 21;
      destination[x] = static_cast<uint8_t>(__builtin_sqrtf(static_cast<float>(quotient)));
      left = middle;
      middle = right;
    }
    source += sourceStride;
    destination += destinationStride;
  }
}

}  // namespace

template <class Form>
int64_t FilterLocalDeviation8(const uint8_t* source, uint8_t* destination, int32_t rows,
                              int32_t columns, int32_t sourceStride, int32_t destinationStride) {
  const int64_t polled = Call<HostPoll>(coreSuite.live[kHostPoll])();
  if (rows < 1 || columns < 1) return polled;
  const auto deviate = [=](auto walk) VX_INLINED {
    DeviateStrips(walk, source, destination, rows, sourceStride, destinationStride,
                  AreFar(rows, 2 * int64_t{columns}));
  };
  const PlaneArea target{destination, destinationStride, rows, columns};
  if (Form::kBytes > 1 &&
      (target.RowsShareBytes() ||
       Overlap({source - sourceStride - 1, sourceStride, rows + int64_t{2}, columns + int64_t{2}},
               target)))
    deviate(Singly<uint16_t>{columns});
  else
    WithTaperedBlocks<Form, uint16_t>(columns, deviate);
  return polled;
}

}  // namespace vantrix
