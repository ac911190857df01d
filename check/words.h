// What a host's routine did, in words.
#pragma once

#include "host/exercise/scene.h"

namespace vantrix::check {

// Where a routine changed a byte beside its planes that ours left alone; empty where it changed
// none. `before` is what the planes hold where nothing is called. Arguments are told by the caller.
std::string WordsOfStray(const host::Outcome& before, const host::Outcome& hosts,
                         const host::Outcome& ours);

}  // namespace vantrix::check
