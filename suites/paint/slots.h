// The slots of suite pntg that the plug-in writes.
#pragma once

#include "plugin/base/slots.h"

namespace vantrix {

// Each group is one pixel loop in three forms: once, three times in turn, four
// times. The one-pass forms of H, I and J take their stack arguments in another
// order than the loop. The pixel arithmetic is the host's own, so every slot is
// passed through.
inline constexpr Slot kPaintSlots[] = {
    {10, Gate::kSSE2, "PaintGroupAOnePass"},
    {28, Gate::kSSE2, "PaintGroupAThreePass"},
    {29, Gate::kSSE2, "PaintGroupAFourPass"},
    {4, Gate::kSSE2, "PaintGroupBOnePass"},
    {26, Gate::kSSE2, "PaintGroupBThreePass"},
    {27, Gate::kSSE2, "PaintGroupBFourPass"},
    {7, Gate::kSSE2, "PaintGroupCOnePass"},
    {24, Gate::kSSE2, "PaintGroupCThreePass"},
    {25, Gate::kSSE2, "PaintGroupCFourPass"},
    {17, Gate::kSSE2, "PaintGroupDOnePass"},
    {34, Gate::kSSE2, "PaintGroupDThreePass"},
    {35, Gate::kSSE2, "PaintGroupDFourPass"},
    {13, Gate::kSSE2, "PaintGroupEOnePass"},
    {36, Gate::kSSE2, "PaintGroupEThreePass"},
    {37, Gate::kSSE2, "PaintGroupEFourPass"},
    {84, Gate::kSSE2, "PaintGroupFOnePass"},
    {85, Gate::kSSE2, "PaintGroupFThreePass"},
    {86, Gate::kSSE2, "PaintGroupFFourPass"},
    {87, Gate::kSSE2, "PaintGroupGOnePass"},
    {88, Gate::kSSE2, "PaintGroupGThreePass"},
    {89, Gate::kSSE2, "PaintGroupGFourPass"},
    {55, Gate::kSSE2, "PaintGroupHOnePass"},
    {56, Gate::kSSE2, "PaintGroupHThreePass"},
    {57, Gate::kSSE2, "PaintGroupHFourPass"},
    {58, Gate::kSSE2, "PaintGroupIOnePass"},
    {59, Gate::kSSE2, "PaintGroupIThreePass"},
    {60, Gate::kSSE2, "PaintGroupIFourPass"},
    {61, Gate::kSSE2, "PaintGroupJOnePass"},
    {62, Gate::kSSE2, "PaintGroupJThreePass"},
    {63, Gate::kSSE2, "PaintGroupJFourPass"},
    {5, Gate::kSSE2, "PaintSlot5"},
    {81, Gate::kSSE2, "PaintSlot81"},
    {18, Gate::kSSE2, "PaintSlot18"},
    {38, Gate::kSSE2, "PaintSlot38"},
    {9, Gate::kSSE2, "PaintSlot9"},
    {92, Gate::kSSE2, "PaintSlot92"},
    {79, Gate::kSSE2, "PaintSlot79"},
};
static_assert(CountGated(kPaintSlots, Gate::kSSE2) == 37);

}  // namespace vantrix
