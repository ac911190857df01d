// Entries that record how they were called. They are in the
// host's tables where it has no routine of its own.
#pragma once

#include <cstdint>
#include <vector>

#include "plugin/base/interface.h"

namespace vantrix::host {

// Calls a routine with arguments of every kind, made from `seed`. Returns
// null if the call reached the slot's entry once, with every argument
// unchanged, and returned that entry's result; else what is wrong.
const char* WrongInPassingThrough(Routine routine, SuiteIndex suite, uint16_t slot, uint64_t seed);

// Returns an entry for each slot of a suite. An entry that anything else calls names its slot and
// ends the program with status 3.
std::vector<Routine> RecordingEntries(SuiteIndex suite);

}  // namespace vantrix::host
