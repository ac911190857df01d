// The slots of suite sele that the plug-in writes.
#pragma once

#include "plugin/slots.h"

namespace vantrix {

inline constexpr Slot kSelectSlots[] = {
    {26, Gate::kAlways, "SelectSpreadMark8"}, {33, Gate::kSSE2, "SelectClassify8"},
    {35, Gate::kSSE2, "SelectPropagate8"},    {73, Gate::kSSE2, "SelectPropagate16"},
    {75, Gate::kSSE2, "SelectClassify16"},
};
static_assert(CountGated(kSelectSlots, Gate::kAlways) == 1);
static_assert(CountGated(kSelectSlots, Gate::kSSE2) == 4);

}  // namespace vantrix
