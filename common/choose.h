// Choices that no branch predictor should be asked for.
#pragma once

#include <cstdint>

#include "common/lane_ops.h"

namespace vantrix {

// `first ? a : b` without a branch, where which it is follows from noise. Clang may be
// told so; from others the condition is hidden, else they join choices that share it.
VX_LANE uint32_t Choose(bool first, uint32_t a, uint32_t b) {
#if defined(__clang__)
  return __builtin_unpredictable(first) ? a : b;
#else
  uint32_t hidden = first;
  asm("" : "+r"(hidden));
  return hidden ? a : b;
#endif
}

// Stores a sample at `place`, or aside, where nobody sees it. No compiler may know that, else it
// makes a branch of the choice.
template <class T>
VX_LANE void StoreIf(bool isStored, T* place, T sample) {
  T aside;
  T* elsewhere = &aside;
  asm("" : "+r"(elsewhere));
#if defined(__clang__)
  *(__builtin_unpredictable(isStored) ? place : elsewhere) = sample;
#else
  *(isStored ? place : elsewhere) = sample;
#endif
}

}  // namespace vantrix
