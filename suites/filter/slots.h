// The slots of suite filt that the plug-in writes.
#pragma once

#include "plugin/slots.h"

namespace vantrix {

inline constexpr Slot kFilterSlots[] = {
    {12, Gate::kAlways, "FilterLocalDeviation8"},
    {34, Gate::kSSE, "FilterSlot34"},
    {28, Gate::kSSE2, "FilterConvolveVertical8"},
    {31, Gate::kSSE2, "FilterSlot31"},
    {75, Gate::kSSE2, "FilterSlot75"},
    {74, Gate::kSSE2, "FilterSlot74"},
    {106, Gate::kSSE2, "FilterSlot106"},
    {189, Gate::kSSE2, "FilterBlockSignedSAD128"},
    {188, Gate::kSSE2, "FilterBlockSAD128"},
    {191, Gate::kSSE2, "FilterFloatBlock8"},
    {192, Gate::kSSE2, "FilterFloatBlock12"},
    {193, Gate::kSSE2, "FilterFloatBlock16"},
    {194, Gate::kSSE2, "FilterFloatBlock20"},
    {195, Gate::kSSE2, "FilterFloatBlockWide"},
    {197, Gate::kSSE2, "FilterSlot197"},
    {200, Gate::kSSE41, "FilterSlot200"},
    {201, Gate::kSSE41, "FilterSlot201"},
    {202, Gate::kSSE41, "FilterSlot202"},
    {155, Gate::kSSE41, "FilterSlot155"},
};
static_assert(CountGated(kFilterSlots, Gate::kAlways) == 1);
static_assert(CountGated(kFilterSlots, Gate::kSSE) == 1);
static_assert(CountGated(kFilterSlots, Gate::kSSE2) == 13);
static_assert(CountGated(kFilterSlots, Gate::kSSE41) == 4);

}  // namespace vantrix
