// The slots of suite path that the plug-in writes, on every processor.
#pragma once

#include "plugin/base/slots.h"

namespace vantrix {

inline constexpr Slot kPathSlots[] = {
    {24, Gate::kAlways, "ApplyFillArrayOperation", "fill array, operation, non-zero winding",
     "pending crossings into spans, combined with the settled ones"},
    {46, Gate::kAlways, "PathSegmentCrossings"},
    {47, Gate::kAlways, "PathSegmentRoutine47"},
};
static_assert(CountGated(kPathSlots, Gate::kAlways) == 3);

}  // namespace vantrix
