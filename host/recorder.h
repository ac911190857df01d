// What stands in the host's tables where it has no routine of its own: entries that write down
// how they were called.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "plugin/interface.h"

namespace vantrix::host {

// Arguments of every kind, in registers and beyond them.
using RecordedRoutine = int64_t(int64_t, double, const void*, float, uint8_t, int32_t, int64_t,
                                const void*, double, int16_t, uint64_t);
struct RecordedCall {
  SuiteIndex suite;
  uint16_t slot;
  int64_t whole;
  double real;
  const void* place;
  float single;
  uint8_t byte;
  int32_t number;
  int64_t seventh;
  const void* eighth;
  double ninth;
  int16_t tenth;
  uint64_t last;
  friend bool operator==(const RecordedCall&, const RecordedCall&) = default;
};

// Calls a routine with arguments made of `seed`. Returns what is wrong unless it reached the entry
// of the slot, once, with every argument as it came, and brought that entry's result back.
std::optional<const char*> WrongInPassingThrough(Routine routine, SuiteIndex suite, uint16_t slot,
                                                 uint64_t seed);

// An entry for each slot of a suite. Called from anywhere else it names its slot and ends the
// program with status 3.
std::vector<Routine> RecordingEntries(SuiteIndex suite);

}  // namespace vantrix::host
