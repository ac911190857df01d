// The one slot of suite core that the plug-in writes.
#pragma once

#include "plugin/base/interface.h"
#include "plugin/base/slots.h"

namespace vantrix {

inline constexpr Slot kCoreSlots[] = {
    {kNoiseBuffer, Gate::kAlways, "NoiseBufferHook", "base, count, size",
     "records the noise buffer, then the host's own routine"},
};

}  // namespace vantrix
