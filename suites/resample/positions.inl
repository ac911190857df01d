// Bodies of positions.h, for the units that instantiate them.
#pragma once

#include "common/gather.h"
#include "common/rounding.h"
#include "suites/resample/positions.h"

namespace vantrix {
namespace {

// What is added to a position so that shifts find its parts.
template <bool kIsLinear>
inline constexpr uint32_t kOrigin = kIsLinear ? 128 : 32768;

// A coordinate: the sample before it, and how far on towards the next it is in 255ths.
template <bool kIsLinear>
struct Place {
  int64_t index;
  uint8_t fraction;

  explicit Place(int32_t position) {
    const int64_t moved = int64_t{position} + kOrigin<kIsLinear>;
    index = moved >> 16;
    fraction = static_cast<uint8_t>(kIsLinear ? moved >> 8 : 0);
  }
  bool IsIn(int32_t length) const { return index >= 0 && index + (fraction != 0) < length; }
};

VX_INLINE uint8_t MixOne(uint8_t first, uint8_t second, uint8_t fraction) {
  using One = Lanes<uint8_t, 1>;
  return Mix(One{first}, One{second}, One{fraction})[0];
}
VX_INLINE uint8_t SampleAlong(const uint8_t* at, uint8_t fraction) {
  return fraction == 0 ? *at : MixOne(at[0], at[1], fraction);
}

// The same in 16-bit lanes, of which a pair holds two samples side by side.
VX_INLINE Words8 MixWords(Words8 first, Words8 second, Words8 fraction) {
  return DivideBy255(first * (255 - fraction) + second * fraction);
}
VX_INLINE Words8 MixPairs(Words8 pairs, Words8 fraction) {
  return MixWords(pairs & 255, pairs >> 8, fraction);
}

// Four coordinates: their indices, and in the low byte of `moved` >> 8 their fractions.
template <bool kIsLinear>
struct FourPlaces {
  Sums4 moved;

  VX_INLINE explicit FourPlaces(const int32_t* positions)
      : moved(Load<Sums4>(positions) + kOrigin<kIsLinear>) {}
  VX_INLINE Ints4 Index() const { return As<Ints4>(moved) >> 16; }
  VX_INLINE Ints4 Fraction() const { return As<Ints4>(moved >> 8 & 255); }
  // Whether the neighbours, needed or not, are inside too.
  VX_INLINE Ints4 IsIn(Ints4 length) const {
    return (Index() >= 0) & (Index() + (kIsLinear ? 1 : 0) < length);
  }
};

// A source of one dimension: one output sample, or eight of which none is outside.
template <bool kIsLinear>
struct Line {
  const uint8_t* source;
  int32_t length;
  const int32_t* positions;

  void One(uint8_t* destination, intptr_t i) const {
    const Place<kIsLinear> x(positions[i]);
    if (x.IsIn(length)) destination[i] = SampleAlong(source + x.index, x.fraction);
  }

  VX_INLINE bool Eight(uint8_t* destination, intptr_t i) const {
    const FourPlaces<kIsLinear> a(positions + i), b(positions + i + 4);
    const Ints4 lengths = Fill<Ints4>(length);
    if (!AllSet(a.IsIn(lengths) & b.IsIn(lengths))) return false;
    alignas(16) int32_t index[8];
    Store(index, a.Index());
    Store(index + 4, b.Index());
    if constexpr (kIsLinear) {
      const Words8 pairs = GatherPairs([&](int k) VX_INLINED { return source + index[k]; });
      const Words8 result = MixPairs(pairs, Narrow(a.Fraction(), b.Fraction()));
      StoreWord(destination + i, As<Quads2>(Narrow(result, result))[0]);
    } else {
      Repeat<8>([&](int k) VX_INLINED { destination[i + k] = source[index[k]]; });
    }
    return true;
  }
};

// A source of two.
template <bool kIsLinear>
struct Area {
  const uint8_t* source;
  int32_t width, height;
  const int32_t* positions;
  intptr_t stride;

  void One(uint8_t* destination, intptr_t i) const {
    const Place<kIsLinear> x(positions[2 * i]), y(positions[2 * i + 1]);
    if (!x.IsIn(width) || !y.IsIn(height)) return;
    const uint8_t* const at = source + y.index * stride + x.index;
    const uint8_t sample = SampleAlong(at, x.fraction);
    destination[i] =
        y.fraction == 0 ? sample : MixOne(sample, SampleAlong(at + stride, x.fraction), y.fraction);
  }

  VX_INLINE bool Eight(uint8_t* destination, intptr_t i) const {
    const int32_t* const from = positions + 2 * i;
    const FourPlaces<kIsLinear> a(from), b(from + 4), c(from + 8), d(from + 12);
    const Ints4 lengths{width, height, width, height};
    if (!AllSet(a.IsIn(lengths) & b.IsIn(lengths) & c.IsIn(lengths) & d.IsIn(lengths)))
      return false;
    alignas(16) int32_t index[16];
    Store(index, a.Index());
    Store(index + 4, b.Index());
    Store(index + 8, c.Index());
    Store(index + 12, d.Index());
    const auto place = [&](int k)
                           VX_INLINED { return source + index[2 * k + 1] * stride + index[2 * k]; };
    if constexpr (kIsLinear) {
      // The fractions of x and y in turn, then apart.
      const auto low = As<Sums4>(Narrow(a.Fraction(), b.Fraction()));
      const auto high = As<Sums4>(Narrow(c.Fraction(), d.Fraction()));
      const Words8 x = Narrow(As<Ints4>(low & 65535), As<Ints4>(high & 65535));
      const Words8 y = Narrow(As<Ints4>(low >> 16), As<Ints4>(high >> 16));
      const Words8 above = GatherPairs(place);
      const Words8 below = GatherPairs([&](int k) VX_INLINED { return place(k) + stride; });
      const Words8 result = MixWords(MixPairs(above, x), MixPairs(below, x), y);
      StoreWord(destination + i, As<Quads2>(Narrow(result, result))[0]);
    } else {
      Repeat<8>([&](int k) VX_INLINED { destination[i + k] = *place(k); });
    }
    return true;
  }
};

// By eights, of which the last reaches back; those with one outside, singly.
template <class Form, class Source>
void SampleAll(Source source, uint8_t* destination, intptr_t count) {
  const auto oneByOne = [&](intptr_t i, intptr_t end) {
    for (; i < end; ++i) source.One(destination, i);
  };
  if (Form::kBytes == 1 || count < 8) return oneByOne(0, count);
  for (intptr_t i = 0; i < count; i += 8) {
    const intptr_t first = i < count - 8 ? i : count - 8;
    if (!source.Eight(destination, first)) oneByOne(first, first + 8);
  }
}

}  // namespace

// Of the mode the low 16 bits count.
template <class Form>
void SampleAtPositions1D8(const uint8_t* source, uint8_t* destination, int32_t count,
                          int32_t sourceLength, const int32_t* positions, int32_t mode) {
  if (static_cast<uint16_t>(mode) != 0)
    SampleAll<Form>(Line<true>{source, sourceLength, positions}, destination, count);
  else
    SampleAll<Form>(Line<false>{source, sourceLength, positions}, destination, count);
}

template <class Form>
void SampleAtPositions2D8(const uint8_t* source, uint8_t* destination, int32_t count,
                          int32_t sourceWidth, int32_t sourceHeight, const int32_t* positions,
                          int32_t sourceStride, int32_t mode) {
  const intptr_t stride = sourceStride;
  if (static_cast<uint16_t>(mode) != 0)
    SampleAll<Form>(Area<true>{source, sourceWidth, sourceHeight, positions, stride}, destination,
                    count);
  else
    SampleAll<Form>(Area<false>{source, sourceWidth, sourceHeight, positions, stride}, destination,
                    count);
}

}  // namespace vantrix
