// The blend modes: each computes the full-strength sample from the destination's and the source's.
//
//   kMoves        whether that sample is never below the destination's, never above it, or either.
//                 If it is never below, or never above, one product with the weight is added to the
//                 destination, or subtracted, at less than full strength
//   kCopiesRows   a row of at most 4096 samples behaves as if operands that overlap the destination
//                 had been copied before it is written
//   kLeavesAlone  under a mask, a sample that does not change is written only in a block in which
//                 another one does. At full strength ChangedBlocks serves such a mode
#pragma once

#include "common/rounding.h"

namespace vantrix {

enum class Moves { kUp, kDown, kEitherWay };

namespace modes {

// The source replaces the destination.
struct Normal {
  static constexpr Moves kMoves = Moves::kEitherWay;
  static constexpr bool kCopiesRows = false;
  static constexpr bool kLeavesAlone = false;
  template <class V>
  VX_INLINE V operator()(V, V s) const {
    return s;
  }
};

struct Screen {
  static constexpr Moves kMoves = Moves::kUp;
  static constexpr bool kCopiesRows = true;
  static constexpr bool kLeavesAlone = false;
  template <class V>
  VX_INLINE V operator()(V d, V s) const {
    return vantrix::Screen(s, d);
  }
};

// The destination decides: below 128, 2 d is multiplied; from 128 on, 2 d + 1 - 256 is screened.
// Lanes wrap, so 2 d has already lost the 256.
struct Overlay {
  static constexpr Moves kMoves = Moves::kEitherWay;
  static constexpr bool kCopiesRows = true;
  static constexpr bool kLeavesAlone = false;
  template <class V>
  VX_INLINE V operator()(V d, V s) const {
    const auto light = IsLight(d);
    return ScreenOrMultiply(light, d + d - As<V>(light), s);
  }
};

// The source decides, and 2 s - 256 is screened, without
// overlay's 1: a source of 128 leaves the destination as it is.
struct HardLight {
  static constexpr Moves kMoves = Moves::kEitherWay;
  static constexpr bool kCopiesRows = true;
  static constexpr bool kLeavesAlone = false;
  template <class V>
  VX_INLINE V operator()(V d, V s) const {
    return ScreenOrMultiply(IsLight(s), s + s, d);
  }
};

struct Multiply {
  static constexpr Moves kMoves = Moves::kDown;
  static constexpr bool kCopiesRows = false;
  static constexpr bool kLeavesAlone = false;
  template <class V>
  VX_INLINE V operator()(V d, V s) const {
    return vantrix::Multiply(s, d);
  }
};

struct Lighten {
  static constexpr Moves kMoves = Moves::kUp;
  static constexpr bool kCopiesRows = false;
  static constexpr bool kLeavesAlone = true;
  template <class V>
  VX_INLINE V operator()(V d, V s) const {
    return s > d ? s : d;
  }
};

struct Darken {
  static constexpr Moves kMoves = Moves::kDown;
  static constexpr bool kCopiesRows = false;
  static constexpr bool kLeavesAlone = true;
  template <class V>
  VX_INLINE V operator()(V d, V s) const {
    return s < d ? s : d;
  }
};

}  // namespace modes

// A mode under a weight: 0 keeps d, 255 gives the mode's
// sample r; in between it is rounded to nearest.
template <class Mode>
struct Weighted {
  static constexpr bool kReadsTarget = true;
  Mode full;
  template <class V>
  VX_INLINE auto Selects(V d, V s, V w) const {
    return (*this)(d, s, w) != d;
  }
  template <class V>
  VX_INLINE V Selected(V d, V s, V w) const {
    return (*this)(d, s, w);
  }
  template <class V>
  VX_INLINE V operator()(V d, V s, V w) const {
    const V r = full(d, s);
    if constexpr (Mode::kMoves == Moves::kUp)
      return d + Multiply(w, r - d);
    else if constexpr (Mode::kMoves == Moves::kDown)
      return d - Multiply(w, d - r);
    else
      return Mix(d, r, w);
  }
};

}  // namespace vantrix
