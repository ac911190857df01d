// Bodies of deviation.h, for the units that instantiate them.
#pragma once

#include "common/lane_ops.h"
#include "plugin/suites.h"
#include "suites/filter/deviation.h"
#include "suites/filter/root.h"

namespace vantrix {
namespace {

// Columns of a strip, which is walked downwards with the sums of its rows in registers, and
// rows after which the next strip takes its turn, so that their lines are still near.
constexpr int32_t kStrip = 8;
constexpr int32_t kRowsTogether = 32;

// Of eight neighbourhoods the even and the odd ones, four lanes each: the sum of their
// samples and of their squares.
struct Sums {
  Ints4 evenSum, oddSum, evenSquares, oddSquares;

  VX_LANE Sums operator+(const Sums& other) const {
    return {evenSum + other.evenSum, oddSum + other.oddSum, evenSquares + other.evenSquares,
            oddSquares + other.oddSquares};
  }
};

VX_LANE Words8 EightWords(const uint8_t* from) {
  return WidenLow(As<Bytes16>(Quads2{LoadWord(from), 0}));
}

// Of one row, samples s[-1] to s[8]. Seen as 32-bit lanes, words from s[0] on are the pairs
// s[2 k], s[2 k + 1] that an even and an odd neighbourhood share; the even one adds s[2 k - 1],
// a low word from s[-1] on, and the odd one s[2 k + 2], a high word from s[1] on.
VX_INLINE Sums SumRow(const uint8_t* s) {
  const Words8 pairs = EightWords(s), ones = Fill<Words8>(1);
  const Ints4 before = As<Ints4>(EightWords(s - 1)) & 0xFFFF;
  const Ints4 after = As<Ints4>(As<Sums4>(EightWords(s + 1)) >> 16);
  const auto products = [](auto a, auto b) VX_INLINED {
    return As<Ints4>(ProductSums(As<Words8>(a), As<Words8>(b)));
  };
  const auto square = [=](Ints4 v) VX_INLINED { return products(v, v); };
  const Ints4 sum = products(pairs, ones), squares = products(pairs, pairs);
  return {sum + before, sum + after, squares + square(before), squares + square(after)};
}

VX_INLINE Ints4 Deviation(Ints4 sum, Ints4 squares) {
  const auto squareOfSum = As<Ints4>(ProductSums(As<Words8>(sum), As<Words8>(sum)));
  return RootOfTwentyFirst((squares << 3) + squares - squareOfSum);
}

// Eight columns.
VX_INLINE void DeviateStrip(const uint8_t* source, uint8_t* destination, int32_t rows,
                            intptr_t sourceStride, intptr_t destinationStride) {
  Sums middle = SumRow(source), upper = SumRow(source - sourceStride) + middle;
  for (; rows > 0; --rows) {
    source += sourceStride;
    const Sums below = SumRow(source), all = upper + below;
    const Ints4 even = Deviation(all.evenSum, all.evenSquares);
    const Ints4 odd = Deviation(all.oddSum, all.oddSquares);
    const Words8 both = As<Words8>(even | odd << 16);
    StoreWord(destination, As<Quads2>(Narrow(both, both))[0]);
    destination += destinationStride;
    upper = middle + below;
    middle = below;
  }
}

// At least eight columns; the last strip reaches back over the one before.
VX_INLINE void DeviateStrips(const uint8_t* source, uint8_t* destination, int32_t rows,
                             intptr_t columns, intptr_t sourceStride, intptr_t destinationStride) {
  for (; rows > 0; rows -= kRowsTogether) {
    const int32_t count = rows < kRowsTogether ? rows : kRowsTogether;
    const auto strip = [&](intptr_t x) VX_INLINED {
      DeviateStrip(source + x, destination + x, count, sourceStride, destinationStride);
    };
    for (intptr_t x = 0; x < columns - kStrip; x += kStrip) strip(x);
    strip(columns - kStrip);
    source += kRowsTogether * sourceStride;
    destination += kRowsTogether * destinationStride;
  }
}

// A column's three samples.
struct ColumnSums {
  int32_t sum, squares;

  VX_INLINE ColumnSums(const uint8_t* at, intptr_t stride) {
    const int32_t a = at[-stride], b = at[0], c = at[stride];
    sum = a + b + c;
    squares = a * a + b * b + c * c;
  }
};

VX_INLINE void DeviateSingly(const uint8_t* source, uint8_t* destination, int32_t rows,
                             int32_t columns, intptr_t sourceStride, intptr_t destinationStride) {
  for (; rows > 0; --rows) {
    ColumnSums left(source - 1, sourceStride), middle(source, sourceStride);
    for (int32_t x = 0; x < columns; ++x) {
      const ColumnSums right(source + x + 1, sourceStride);
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
  const int64_t answer = Call<HostPoll>(coreSuite.live[kHostPoll])();
  if (rows < 1 || columns < 1) return answer;
  if (Form::kBytes == 1 || columns < kStrip)
    DeviateSingly(source, destination, rows, columns, sourceStride, destinationStride);
  else
    DeviateStrips(source, destination, rows, columns, sourceStride, destinationStride);
  return answer;
}

}  // namespace vantrix
