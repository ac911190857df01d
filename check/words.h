// A difference in words.
#pragma once

#include "host/exercise/scene.h"

namespace vantrix::check {

// The arguments of a call with their names, which `names` lists.
std::string WordsOfArguments(const char* names, const host::Outcome& outcome);

// Where a routine changed a byte beside its planes that ours left alone; empty where it changed
// none. `before` is what the planes held before the call. Arguments are told by the caller.
std::string WordsOfStray(const host::Outcome& before, const host::Outcome& hosts,
                         const host::Outcome& ours);

// The first difference: where, the two results, and what all planes held there before.
// Empty where there is none.
std::string WordsOfDifference(const host::Outcome& before, const host::Outcome& hosts,
                              const host::Outcome& ours);

}  // namespace vantrix::check
