// The operands and the targets of rules: planes, constants, weights.
//
// An operand gives the samples of a place in the current row, of which common/blocks.h
// tells the kinds. Places are in samples, strides in bytes.
#pragma once

#include "common/blocks.h"

namespace vantrix {

// A plane, or one value for every sample.
template <class T>
struct PlaneOf {
  using Sample = T;
  const T* row;
  int32_t stride;  // bytes from a row to the next, may be negative

  template <class Place>
  VX_LANE auto At(Place place) const {
    return place.LoadFrom(row);
  }
  VX_LANE PlaneOf From(intptr_t x) const { return {row + x, stride}; }
  VX_LANE void NextRow() { row = Below(row, stride); }
};
using Plane = PlaneOf<uint8_t>;
using WordPlane = PlaneOf<uint16_t>;

struct Constant {
  uint8_t value;

  template <class Place>
  VX_LANE auto At(Place) const {
    return Fill<typename Place::Register>(value);
  }
  VX_LANE Constant From(intptr_t) const { return *this; }
  VX_LANE void NextRow() {}
};

// A plane of weights. Masks are mostly empty or full over large areas, so a
// block of weights that is all 0 or all 255 is told apart before it is used.
struct Weights : Plane {
  enum Cover { kNone, kSome, kAll };

  // Compared in words, in general registers: on a mask that varies the test hides
  // behind the vector arithmetic and costs nothing.
  template <class V>
  VX_LANE Cover CoverAt(Block<V> block) const {
    const uint64_t first = LoadWord(row + block.x);
    for (size_t i = 8; i < sizeof(V); i += 8)
      if (LoadWord(row + block.x + i) != first) return kSome;
    return first == 0 ? kNone : first == ~uint64_t{0} ? kAll : kSome;
  }
};

// The plane that is written: read first (TargetOf), or never read (OutputOf).
template <class T>
struct TargetOf {
  using Sample = T;
  T* row;
  int32_t stride;

  static constexpr bool kIsRead = true;
  template <class Place>
  VX_LANE auto At(Place place) const {
    return place.LoadFrom(row);
  }
  template <class Place, class V>
  VX_LANE void Write(Place place, V samples) const {
    place.StoreTo(row, samples);
  }
  // The first sample behind sample x that lies at a kBytes-byte boundary.
  template <int kBytes>
  VX_LANE intptr_t BoundaryAfter(intptr_t x) const {
    const auto past = reinterpret_cast<uintptr_t>(row + x) & (kBytes - 1);
    return x + static_cast<intptr_t>((kBytes - past) / sizeof(T));
  }
  VX_LANE TargetOf From(intptr_t x) const { return {row + x, stride}; }
  VX_LANE void NextRow() { row = Below(row, stride); }
};
template <class T>
struct OutputOf : TargetOf<T> {
  static constexpr bool kIsRead = false;
};
using Target = TargetOf<uint8_t>;
using Output = OutputOf<uint8_t>;
using WordTarget = TargetOf<uint16_t>;
using WordOutput = OutputOf<uint16_t>;

// Two planes that are read and written together: a rule takes and returns a pair.
template <class V>
struct Pair {
  V first, second;
};
template <class T>
struct TwoTargetsOf {
  using Sample = T;
  TargetOf<T> first, second;

  static constexpr bool kIsRead = true;
  template <class Place>
  VX_LANE auto At(Place place) const {
    return Pair<typename Place::Register>{first.At(place), second.At(place)};
  }
  template <class Place, class V>
  VX_LANE void Write(Place place, Pair<V> samples) const {
    first.Write(place, samples.first);
    second.Write(place, samples.second);
  }
  template <int kBytes>
  VX_LANE intptr_t BoundaryAfter(intptr_t x) const {
    return first.template BoundaryAfter<kBytes>(x);
  }
  VX_LANE void NextRow() {
    first.NextRow();
    second.NextRow();
  }
};
using TwoTargets = TwoTargetsOf<uint8_t>;

}  // namespace vantrix
