// The operands and the targets of rules: planes, constants, weights.
//
// An operand gives the samples at a place (common/blocks.h) of its current row. A target is written
// there. Places are in samples, strides in bytes.
#pragma once

#include <concepts>

#include "common/blocks.h"

namespace vantrix {

// Also has At(place) for every place of a row, and an overload of OverlapsInPart
// (common/overlap.h).
template <class T>
concept Operand = requires(T operand) { operand.NextRow(); };

// Also has Write(place, samples), and At(place) if it is read.
template <class T>
concept RuleTarget = requires(T target) {
  typename T::Sample;
  { T::kIsRead } -> std::convertible_to<bool>;
  target.NextRow();
};

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
using Plane16 = PlaneOf<uint16_t>;

// One value for every sample.
struct Constant {
  uint8_t value;

  template <class Place>
  VX_LANE auto At(Place) const {
    return Fill<typename Place::Register>(value);
  }
  VX_LANE Constant From(intptr_t) const { return *this; }
  VX_LANE void NextRow() {}
};

// A plane of weights. Masks are mostly empty or full over large areas, so rules are told of blocks
// whose weights are all 0 or all 255.
struct Weights : Plane {
  enum Cover { kNone, kSome, kAll };

  // Compares in general registers, 8 bytes at a time: on a mask that varies, that runs beside the
  // vector arithmetic and costs nothing.
  template <class V>
  VX_LANE Cover CoverAt(Block<V> block) const {
    const uint64_t first = LoadU64(row + block.x);
    for (size_t i = 8; i < sizeof(V); i += 8)
      if (LoadU64(row + block.x + i) != first) return kSome;
    return first == 0 ? kNone : first == ~uint64_t{0} ? kAll : kSome;
  }
};

// The plane that is written. A TargetOf is also read first, an OutputOf never is.
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
  // The first sample after sample x that lies at a kBytes-byte boundary.
  template <int kBytes>
  VX_LANE intptr_t BoundaryAfter(intptr_t x) const {
    return x + ToNextBoundary<kBytes>(row + x) / intptr_t{sizeof(T)};
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
using Target16 = TargetOf<uint16_t>;
using Output16 = OutputOf<uint16_t>;

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
