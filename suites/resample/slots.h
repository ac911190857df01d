// The slots of suite rsmp that the plug-in writes.
#pragma once

#include "plugin/slots.h"

namespace vantrix {

// Slots 5 and 6 stand under two flags: either brings them, and the later line wins.
inline constexpr Slot kResampleSlots[] = {
    {7, Gate::kSSE, "ResampleRowsStepped8"},
    {5, Gate::kSSE, "FilterResampleHorizontal8"},
    {6, Gate::kSSE, "FilterResampleVertical8"},
    {18, Gate::kSSE, "SampleAtPositions1D8"},
    {19, Gate::kSSE, "SampleAtPositions2D8"},
    {24, Gate::kSSE, "BoxAverageArea8"},
    {13, Gate::kSSE, "FilterResampleHorizontal16"},
    {5, Gate::kSSE2, "FilterResampleHorizontal8"},
    {6, Gate::kSSE2, "FilterResampleVertical8"},
    {3, Gate::kSSE2, "BoxAverageRows8"},
    {27, Gate::kSSE2, "FilterResampleVertical32F"},
    {26, Gate::kSSE41, "FilterResampleHorizontal32F"},
};
static_assert(CountGated(kResampleSlots, Gate::kSSE) == 7);
static_assert(CountGated(kResampleSlots, Gate::kSSE2) == 4);
static_assert(CountGated(kResampleSlots, Gate::kSSE41) == 1);

}  // namespace vantrix
