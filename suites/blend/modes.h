// The blend modes: each is the full-strength sample from the destination's and the
// source's, and says on which side of the destination it lies.
//
// A mode in part is then one product of the weight: added where the mode only rises,
// taken away where it only falls. kCopiesRows: of operands that overlap the destination
// a row of at most 4096 samples is taken as it was before the row. kLeavesAlone: under a mask,
// samples that do not change are not written but in blocks in which another does; at full strength
// ChangedBlocks serves such a mode.
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

// The destination decides: below 128 it is doubled and multiplied, from 128 on
// 2 d + 1 - 256 is screened. Lanes wrap, so 2 d has lost the 256 already.
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

// The source decides, and what is screened lacks overlay's 1: a source of 128 leaves
// the destination as it is.
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

// A mode in part: 0 keeps d, 255 gives the mode's sample r, rounded to nearest between.
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
