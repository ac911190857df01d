// The processor's time-stamp counter: a clock that goes evenly, whatever the clock of the cores
// does. Its ticks are no cycles of a core.
#pragma once

#include <x86intrin.h>

#include <cstdint>

namespace vantrix::host {

// What came before is done, and what comes after has not begun.
inline uint64_t Ticks() {
  _mm_lfence();
  const uint64_t ticks = __rdtsc();
  _mm_lfence();
  return ticks;
}

// Found out by a clock of the system, once.
double TicksPerSecond();

}  // namespace vantrix::host
