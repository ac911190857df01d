#include "host/bench/ticks.h"

#include <chrono>

namespace vantrix::host {
namespace {

using Clock = std::chrono::steady_clock;

struct Instant {
  Clock::time_point time;
  uint64_t ticks;
};

// Reads both clocks at once: of several tries, returns the one with the least time between them.
Instant Now() {
  Instant best{};
  uint64_t least = ~uint64_t{0};
  for (int i = 0; i < 20; ++i) {
    const uint64_t start = Ticks();
    const Clock::time_point time = Clock::now();
    const uint64_t taken = Ticks() - start;
    if (taken < least) least = taken, best = {time, start + taken / 2};
  }
  return best;
}

}  // namespace

double TicksPerSecond() {
  static const double rate = [] {
    const Instant start = Now();
    while (Clock::now() - start.time < std::chrono::milliseconds(50)) {
    }
    const Instant end = Now();
    return static_cast<double>(end.ticks - start.ticks) /
           std::chrono::duration<double>(end.time - start.time).count();
  }();
  return rate;
}

}  // namespace vantrix::host
