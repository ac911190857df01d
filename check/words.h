// What a host's routine did, in words.
#pragma once

#include "host/exercise/scene.h"

namespace vantrix::check {

// Returns where the host's routine changed a byte outside its planes
// that ours left alone; empty if it changed none. `before` is what the
// planes hold if nothing is called. The caller names the arguments.
std::string WordsOfStray(const host::Outcome& before, const host::Outcome& hosts,
                         const host::Outcome& ours);

}  // namespace vantrix::check
