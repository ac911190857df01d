// What stands in the host's tables where it has no routine of its own: entries that write down
// how they were called.
#pragma once

#include <cstdint>
#include <vector>

#include "plugin/base/interface.h"

namespace vantrix::host {

// Calls a routine with arguments of every kind, made of `seed`. Returns what is wrong, or null if
// it reached the entry of the slot, once, with every argument as it came, and brought that entry's
// result back.
const char* WrongInPassingThrough(Routine routine, SuiteIndex suite, uint16_t slot, uint64_t seed);

// An entry for each slot of a suite. Called from anywhere else it names its slot and ends the
// program with status 3.
std::vector<Routine> RecordingEntries(SuiteIndex suite);

}  // namespace vantrix::host
