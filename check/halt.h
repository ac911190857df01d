// Stops a thread that does not come back.
#pragma once

#include <cstdint>

namespace vantrix::check {

// The system's name of the thread that asks, which can be stopped from then on.
uintptr_t HaltableThread();

// Stops another thread where it is, for good. It keeps what it holds, and neither runs, writes nor
// faults any more, whatever happens to the memory about it. False where it could not be stopped.
bool HaltForGood(uintptr_t thread);

// This library stays loaded until the process ends: a thread stands in its code.
void StayLoaded();

}  // namespace vantrix::check
