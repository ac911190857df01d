// Bodies of positions.h, for the units that instantiate them.
#pragma once

#include "common/overlap.h"
#include "common/rounding.h"
#include "suites/resample/gather.h"
#include "suites/resample/positions.h"

namespace vantrix {
namespace {

// What is added to a position, so that shifts give its parts.
template <bool kIsLinear>
inline constexpr uint32_t kOrigin = kIsLinear ? 128 : 32768;

// A coordinate: the sample at or before it, and the distance from there to the next one in 255ths.
template <bool kIsLinear>
struct Coordinate {
  int64_t index;
  uint8_t fraction;

  explicit Coordinate(int32_t position) {
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

// The same in 16-bit lanes. A lane of `pairs` has two neighbouring samples.
template <class V>
VX_INLINE V MixWords(V first, V second, V fraction) {
  return DivideBy255(first * (255 - fraction) + second * fraction);
}
template <class V>
VX_INLINE V MixPairs(V pairs, V fraction) {
  return MixWords(V(pairs & 255), V(pairs >> 8), fraction);
}

// A register V of coordinates.
template <bool kIsLinear, class V>
struct Coordinates {
  U32<V> moved;

  VX_INLINE explicit Coordinates(const int32_t* positions)
      : moved(Load<U32<V>>(positions) + kOrigin<kIsLinear>) {}
  VX_INLINE V Index() const { return As<V>(moved) >> 16; }
  VX_INLINE V Fraction() const { return As<V>(moved >> 8 & 255); }
  // Whether a coordinate and its right neighbour, needed or not, are inside.
  VX_INLINE V IsIn(V length) const {
    return (Index() >= 0) & (Index() + (kIsLinear ? 1 : 0) < length);
  }
};

// A source of one dimension. One() computes an output sample. Several() computes as many as V has
// 16-bit lanes; if one of them is outside, it computes none and returns false.
template <bool kIsLinear>
struct Line {
  const uint8_t* source;
  int32_t length;
  const int32_t* positions;

  VX_INLINE bool Overlaps(PlaneArea samples) const {
    return length < 1 || Overlap({source, 0, 1, length}, samples) ||
           Overlap({positions, 0, 1, 4 * samples.bytes}, samples);
  }

  void One(uint8_t* destination, intptr_t i) const {
    const Coordinate<kIsLinear> x(positions[i]);
    if (x.IsIn(length)) destination[i] = SampleAlong(source + x.index, x.fraction);
  }

  template <class V>
  VX_INLINE bool Several(uint8_t* destination, intptr_t i) const {
    constexpr int kCount = kLaneCount<V>;
    const Coordinates<kIsLinear, I32<V>> a(positions + i), b(positions + i + kCount / 2);
    const auto lengths = Fill<I32<V>>(length);
    if (!AllSet(a.IsIn(lengths) & b.IsIn(lengths))) return false;
    alignas(V) int32_t index[kCount];
    Store(index, a.Index());
    Store(index + kCount / 2, b.Index());
    const auto address = [&](int k) VX_INLINED { return source + index[k]; };
    if constexpr (kIsLinear) {
      const V result =
          MixPairs(GatherPairs<V>(address), As<V>(NarrowInMemoryOrder(a.Fraction(), b.Fraction())));
      Store(destination + i, NarrowToHalf(result));
    } else {
      Repeat<kCount>([&](int k) VX_INLINED { destination[i + k] = *address(k); });
    }
    return true;
  }
};

// The same for a source of two dimensions.
template <bool kIsLinear>
struct Area {
  const uint8_t* source;
  int32_t width, height;
  const int32_t* positions;
  intptr_t stride;

  VX_INLINE bool Overlaps(PlaneArea samples) const {
    return width < 1 || height < 1 || Overlap({source, stride, height, width}, samples) ||
           Overlap({positions, 0, 1, 8 * samples.bytes}, samples);
  }

  void One(uint8_t* destination, intptr_t i) const {
    const Coordinate<kIsLinear> x(positions[2 * i]), y(positions[2 * i + 1]);
    if (!x.IsIn(width) || !y.IsIn(height)) return;
    const uint8_t* const at = source + y.index * stride + x.index;
    const uint8_t sample = SampleAlong(at, x.fraction);
    destination[i] =
        y.fraction == 0 ? sample : MixOne(sample, SampleAlong(at + stride, x.fraction), y.fraction);
  }

  template <class V>
  VX_INLINE bool Several(uint8_t* destination, intptr_t i) const {
    constexpr int kCount = kLaneCount<V>, kHalf = kCount / 2;
    const int32_t* const from = positions + 2 * i;
    using FourthPart = Coordinates<kIsLinear, I32<V>>;
    const FourthPart a(from), b(from + kHalf), c(from + 2 * kHalf), d(from + 3 * kHalf);
    const auto lengths =
        As<I32<V>>(Fill<U64<V>>(uint32_t(width) | uint64_t{uint32_t(height)} << 32));
    if (!AllSet(a.IsIn(lengths) & b.IsIn(lengths) & c.IsIn(lengths) & d.IsIn(lengths)))
      return false;
    alignas(V) int32_t index[2 * kCount];
    Store(index, a.Index());
    Store(index + kHalf, b.Index());
    Store(index + 2 * kHalf, c.Index());
    Store(index + 3 * kHalf, d.Index());
    const auto address = [&](int k) VX_INLINED {
      return source + index[2 * k + 1] * stride + index[2 * k];
    };
    if constexpr (kIsLinear) {
      // Fractions of x and y alternate; then they are separated.
      const auto first = As<U32<V>>(NarrowInMemoryOrder(a.Fraction(), b.Fraction()));
      const auto second = As<U32<V>>(NarrowInMemoryOrder(c.Fraction(), d.Fraction()));
      const auto apart = [](U32<V> low, U32<V> high) VX_INLINED {
        return As<V>(NarrowInMemoryOrder(As<I32<V>>(low), As<I32<V>>(high)));
      };
      const V x = apart(first & 65535, second & 65535), y = apart(first >> 16, second >> 16);
      const V above = GatherPairs<V>(address);
      const V below = GatherPairs<V>([&](int k) VX_INLINED { return address(k) + stride; });
      const V result = MixWords(MixPairs(above, x), MixPairs(below, x), y);
      Store(destination + i, NarrowToHalf(result));
    } else {
      Repeat<kCount>([&](int k) VX_INLINED { destination[i + k] = *address(k); });
    }
    return true;
  }
};

// Computes as many output samples as V has 16-bit lanes. If
// one is outside, halves are tried, down to single samples.
template <class V, class Source>
VX_INLINE void SampleBlock(const Source& source, uint8_t* destination, intptr_t i) {
  constexpr int kCount = kLaneCount<V>;
  if (source.template Several<V>(destination, i)) return;
  if constexpr (sizeof(V) == 16) {
    for (int k = 0; k < kCount; ++k) source.One(destination, i + k);
  } else {
    for (int k = 0; k < kCount; k += kCount / 2) SampleBlock<HalfOf<V>>(source, destination, i + k);
  }
}

template <class Form, class Source>
void SampleAll(Source source, uint8_t* destination, intptr_t count) {
  if (count < 1) return;
  if constexpr (Form::kBytes > 1) {
    const auto inBlocks = [&](auto walk) VX_INLINED {
      walk.ForEach([&]<class V>(Block<V> block)
                       VX_INLINED { SampleBlock<V>(source, destination, block.x); });
    };
    if (!source.Overlaps({destination, 0, 1, count}) &&
        WithWholeBlocks<uint16_t, Form::kBytes>(0, count, inBlocks))
      return;
  }
  for (intptr_t i = 0; i < count; ++i) source.One(destination, i);
}

}  // namespace

// Only the low 16 bits of the mode count.
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
