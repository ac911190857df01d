// The processor's time-stamp counter: a clock with a constant rate, whatever the clock of the cores
// does. Its ticks are not cycles of a core.
#pragma once

#include <x86intrin.h>

#include <cstdint>

namespace vantrix::host {

// Reads the counter when what came before is done, and what comes after has not begun.
inline uint64_t Ticks() {
  _mm_lfence();
  const uint64_t ticks = __rdtsc();
  _mm_lfence();
  return ticks;
}

// Returns the rate, measured once by a clock of the system.
double TicksPerSecond();

}  // namespace vantrix::host
