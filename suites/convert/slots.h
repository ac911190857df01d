// The slots of suite conv that the plug-in writes.
#pragma once

#include "plugin/base/slots.h"

namespace vantrix {

inline constexpr Slot kConvertSlots[] = {
    {19, Gate::kAlways, "RescaleWords", "samples, from maximum, to maximum, rows, width, stride",
     "0xFFFF to 0x8000: (v x 32768 + 32767) / 65535; 0x8000 to 0xFFFF: v > 0x7FFF ? 0xFFFF : "
     "(v x 65535 + 16384) >> 15; others: the host's own routine"},
    {16, Gate::kSSE2, "ConvertSlot16"},
    {17, Gate::kSSE2, "ConvertSlot17"},
    {18, Gate::kSSE2, "Expand8To16",
     "source, destination, rows, width, source stride, destination stride",
     "(v x 32768 + 127) / 255"},
    {58, Gate::kSSE2, "ConvertSlot58"},
};
static_assert(CountGated(kConvertSlots, Gate::kAlways) == 1);
static_assert(CountGated(kConvertSlots, Gate::kSSE2) == 4);

}  // namespace vantrix
