// The slots of suite blnd that the plug-in writes.
#pragma once

#include "plugin/slots.h"

namespace vantrix {

inline constexpr char kMaskedArguments[] =
    "source, destination, mask, rows, columns, source stride, destination stride, mask stride";
inline constexpr char kColorMaskedArguments[] =
    "colour, destination, mask, rows, columns, destination stride, mask stride";

// In the rules, s is the source's sample, c the colour, d the destination's, m the
// mask's, k the opacity.
inline constexpr Slot kBlendSlots[] = {
    {26, Gate::kSSE, "BlendScreenColorMasked8"},
    {27, Gate::kSSE, "BlendScreen8"},
    {47, Gate::kSSE, "BlendOverlayMasked8"},
    {48, Gate::kSSE, "BlendOverlayColorMasked8"},
    {49, Gate::kSSE, "BlendOverlay8"},
    {50, Gate::kSSE, "BlendHardLightMasked8"},
    {51, Gate::kSSE, "BlendHardLightColorMasked8"},
    {52, Gate::kSSE, "BlendHardLight8"},
    {57, Gate::kSSE, "BlendScreenOpacity8"},
    {58, Gate::kSSE, "BlendOverlayOpacity8"},
    {59, Gate::kSSE, "BlendHardLightOpacity8"},
    {1, Gate::kSSE2, "BlendSlot1"},
    {2, Gate::kSSE2, "BlendMasked8", kMaskedArguments, "d + SignedMultiply(m, s - d)"},
    {3, Gate::kSSE2, "BlendColorMasked8", kColorMaskedArguments, "d + SignedMultiply(m, c - d)"},
    {7, Gate::kSSE2, "BlendDarkenMasked8"},
    {8, Gate::kSSE2, "BlendDarkenColorMasked8"},
    {10, Gate::kSSE2, "BlendLightenMasked8"},
    {11, Gate::kSSE2, "BlendLightenColorMasked8"},
    {22, Gate::kSSE2, "BlendMultiplyMasked8"},
    {24, Gate::kSSE2, "BlendMultiply8"},
    {28, Gate::kSSE2, "BlendLighten8"},
    {29, Gate::kSSE2, "BlendDarken8"},
    {30, Gate::kSSE2, "BlendThresholdMasked8"},
    {31, Gate::kSSE2, "BlendColorThresholdMasked8"},
    {53, Gate::kSSE2, "BlendSlot53"},
    {54, Gate::kSSE2, "BlendSlot54"},
    {56, Gate::kSSE2, "BlendMultiplyOpacity8"},
    {66, Gate::kSSE2, "BlendBurnPlanes8"},
    {74, Gate::kSSE2, "BlendMultiplyPlanes8"},
    {75, Gate::kSSE2, "BlendInvertMultiplyPlanes8"},
    {96, Gate::kSSE2, "BlendScreenShare8"},
    {97, Gate::kSSE2, "BlendMultiplyPlanesInvert8"},
    {106, Gate::kSSE2, "BlendColorWhereZero8"},
    {115, Gate::kSSE2, "BlendSlot115"},
    {191, Gate::kSSE2, "BlendSlot191"},
    {192, Gate::kSSE2, "BlendSlot192"},
    {193, Gate::kSSE2, "BlendSlot193"},
    {194, Gate::kSSE2, "BlendSlot194"},
    {195, Gate::kSSE2, "BlendSlot195"},
    {198, Gate::kSSE2, "BlendSlot198"},
    {216, Gate::kSSE2, "BlendSlot216"},
    {218, Gate::kSSE2, "BlendSlot218"},
    {219, Gate::kSSE2, "BlendSlot219"},
    {221, Gate::kSSE2, "BlendSlot221"},
    {222, Gate::kSSE2, "BlendSlot222"},
    {223, Gate::kSSE2, "BlendSlot223"},
    {235, Gate::kSSE2, "BlendSlot235"},
    {259, Gate::kSSE2, "BlendSlot259"},
    {275, Gate::kSSE2, "BlendSlot275"},
    {276, Gate::kSSE2, "BlendSlot276"},
    {277, Gate::kSSE2, "BlendSlot277"},
    {278, Gate::kSSE2, "BlendSlot278"},
    {289, Gate::kSSE2, "BlendSlot289"},
    {320, Gate::kSSE2, "BlendSlot320"},
};
static_assert(CountGated(kBlendSlots, Gate::kSSE) == 11);
static_assert(CountGated(kBlendSlots, Gate::kSSE) + CountGated(kBlendSlots, Gate::kSSE2) == 54);

}  // namespace vantrix
