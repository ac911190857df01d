// The blend modes: each is the full-strength sample from the destination's and the
// source's.
#pragma once

#include "common/rounding.h"

namespace vantrix {

// The source replaces the destination.
struct Normal {
  template <class V>
  VX_INLINE V operator()(V, V s) const {
    return s;
  }
};

}  // namespace vantrix
