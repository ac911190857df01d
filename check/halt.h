// Stops a thread in a routine that does not return.
#pragma once

#include <cstdint>

namespace vantrix::check {

// Returns the system's identifier of the calling thread, which can be stopped from then on.
uintptr_t HaltableThread();

// Stops another thread for good, wherever it is. It keeps what it holds, and no longer runs, writes
// or faults, whatever happens to the memory around it. Returns false if it could not be stopped.
bool HaltForGood(uintptr_t thread);

// Keeps this library loaded until the process ends: a stopped thread is in its code.
void StayLoaded();

}  // namespace vantrix::check
