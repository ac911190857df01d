// The slots of suite sele that the plug-in writes.
#pragma once

#include "plugin/base/slots.h"

namespace vantrix {

inline constexpr Slot kSelectSlots[] = {
    {26, Gate::kAlways, "SelectSpreadMark8", "data, rows, width, row bytes",
     "bit 7 set where it, the entry above or the entry below had it set"},
    {33, Gate::kSSE2, "SelectClassify8", "data, rows, width, row bytes",
     "0 all 0, 1 all below 128, 2 mixed, 3 all from 128 on, 4 all 255; narrower than 16: the "
     "host's own routine"},
    {35, Gate::kSSE2, "SelectPropagate8",
     "priority, value, line count, line length, line step, entry step",
     "along each line, d' = d > 1 ? d - 1 : d of the entry before; the entry receives its value "
     "and d', unless d' = 0 or its own priority is above d'"},
    {73, Gate::kSSE2, "SelectPropagate16",
     "priority, value, line count, line length, line step, entry step",
     "as slot 35; whole groups of eight adjacent lines are held back by d' = 32768 instead of "
     "0"},
    {75, Gate::kSSE2, "SelectClassify16", "data, rows, width, row bytes",
     "as slot 33 with half 16384 and full 32768, by signed lanes; narrower than 8: the host's own "
     "routine"},
};
static_assert(CountGated(kSelectSlots, Gate::kAlways) == 1);
static_assert(CountGated(kSelectSlots, Gate::kSSE2) == 4);

}  // namespace vantrix
