// Work that may touch memory outside a plane, or run what the processor does not know.
#pragma once

#include <functional>

namespace vantrix::host {

// Does work(); returns what stopped it, or null. Work that was stopped does not go on: what it held
// is lost, and floating-point control is as it was before.
const char* FaultIn(const std::function<void()>& work);

}  // namespace vantrix::host
