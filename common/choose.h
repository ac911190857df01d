// Choices without a branch.
#pragma once

#include <cstdint>

#include "common/lane_ops.h"

namespace vantrix {

// Returns `first ? a : b` without a branch, for a condition that cannot be
// predicted. Clang is told that it cannot. The condition is hidden from
// GCC, which otherwise joins all choices that share it into one branch.
VX_LANE uint32_t Choose(bool first, uint32_t a, uint32_t b) {
#if defined(__clang__)
  return __builtin_unpredictable(first) ? a : b;
#else
  uint32_t hidden = first;
  asm("" : "+r"(hidden));
  return hidden ? a : b;
#endif
}

// Stores a sample in `to` if isStored, else into a variable that nobody reads. The variable's
// address is hidden: a compiler that knows that nobody reads it makes a branch of the choice.
template <class T>
VX_LANE void StoreIf(bool isStored, T* to, T sample) {
  T aside;
  T* elsewhere = &aside;
  asm("" : "+r"(elsewhere));
#if defined(__clang__)
  *(__builtin_unpredictable(isStored) ? to : elsewhere) = sample;
#else
  *(isStored ? to : elsewhere) = sample;
#endif
}

}  // namespace vantrix
