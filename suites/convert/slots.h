// The slots of suite conv that the plug-in writes.
#pragma once

#include "plugin/slots.h"

namespace vantrix {

inline constexpr Slot kConvertSlots[] = {
    {19, Gate::kAlways, "RescaleWords"}, {16, Gate::kSSE2, "ConvertSlot16"},
    {17, Gate::kSSE2, "ConvertSlot17"},  {18, Gate::kSSE2, "Expand8To16"},
    {58, Gate::kSSE2, "ConvertSlot58"},
};
static_assert(CountGated(kConvertSlots, Gate::kAlways) == 1);
static_assert(CountGated(kConvertSlots, Gate::kSSE2) == 4);

}  // namespace vantrix
