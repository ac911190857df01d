// The slots of suite blnd that the plug-in writes.
#pragma once

#include "plugin/base/slots.h"

namespace vantrix {

inline constexpr char kPlaneArguments[] =
    "source, destination, rows, columns, source stride, destination stride";
inline constexpr char kOpacityArguments[] =
    "source, destination, rows, columns, source stride, destination stride, opacity";
inline constexpr char kMaskedArguments[] =
    "source, destination, mask, rows, columns, source stride, destination stride, mask stride";
inline constexpr char kColorMaskedArguments[] =
    "colour, destination, mask, rows, columns, destination stride, mask stride";
inline constexpr char kPlanesArguments[] =
    "first, destination, second, rows, columns, first stride, destination stride, second stride";

// In the rules, s is the source's sample, c the colour, d the destination's, m the
// mask's, k the opacity; a and b are the samples of two source planes.
inline constexpr Slot kBlendSlots[] = {
    {26, Gate::kSSE, "BlendScreenColorMasked8", kColorMaskedArguments,
     "d + Multiply(m, Screen(c, d) - d)"},
    {27, Gate::kSSE, "BlendScreen8", kPlaneArguments, "Screen(s, d)"},
    {47, Gate::kSSE, "BlendOverlayMasked8", kMaskedArguments,
     "d + SignedMultiply(m, Overlay(d, s) - d)"},
    {48, Gate::kSSE, "BlendOverlayColorMasked8", kColorMaskedArguments,
     "d + SignedMultiply(m, Overlay(d, c) - d)"},
    {49, Gate::kSSE, "BlendOverlay8", kPlaneArguments, "Overlay(d, s)"},
    {50, Gate::kSSE, "BlendHardLightMasked8", kMaskedArguments,
     "d + SignedMultiply(m, HardLight(s, d) - d)"},
    {51, Gate::kSSE, "BlendHardLightColorMasked8", kColorMaskedArguments,
     "d + SignedMultiply(m, HardLight(c, d) - d)"},
    {52, Gate::kSSE, "BlendHardLight8", kPlaneArguments, "HardLight(s, d)"},
    {57, Gate::kSSE, "BlendScreenOpacity8", kOpacityArguments, "d + Multiply(k, Screen(s, d) - d)"},
    {58, Gate::kSSE, "BlendOverlayOpacity8", kOpacityArguments,
     "d + SignedMultiply(k, Overlay(d, s) - d)"},
    {59, Gate::kSSE, "BlendHardLightOpacity8", kOpacityArguments,
     "d + SignedMultiply(k, HardLight(s, d) - d)"},
    {1, Gate::kSSE2, "BlendSlot1"},
    {2, Gate::kSSE2, "BlendMasked8", kMaskedArguments, "d + SignedMultiply(m, s - d)"},
    {3, Gate::kSSE2, "BlendColorMasked8", kColorMaskedArguments, "d + SignedMultiply(m, c - d)"},
    {7, Gate::kSSE2, "BlendDarkenMasked8", kMaskedArguments,
     "s < d: d - Multiply(m, d - s), else d"},
    {8, Gate::kSSE2, "BlendDarkenColorMasked8", kColorMaskedArguments,
     "c < d: d - Multiply(m, d - c), else d"},
    {10, Gate::kSSE2, "BlendLightenMasked8", kMaskedArguments,
     "s > d: d + Multiply(m, s - d), else d"},
    {11, Gate::kSSE2, "BlendLightenColorMasked8", kColorMaskedArguments,
     "c > d: d + Multiply(m, c - d), else d"},
    {22, Gate::kSSE2, "BlendMultiplyMasked8", kMaskedArguments,
     "d - Multiply(m, d - Multiply(s, d))"},
    {24, Gate::kSSE2, "BlendMultiply8", kPlaneArguments, "Multiply(s, d)"},
    {28, Gate::kSSE2, "BlendLighten8", kPlaneArguments,
     "the larger of s and d; unchanged blocks are not written"},
    {29, Gate::kSSE2, "BlendDarken8", kPlaneArguments,
     "the smaller of s and d; unchanged blocks are not written"},
    {30, Gate::kSSE2, "BlendThresholdMasked8", kMaskedArguments, "m >= 128: s, else d"},
    {31, Gate::kSSE2, "BlendColorThresholdMasked8", kColorMaskedArguments, "m >= 128: c, else d"},
    {53, Gate::kSSE2, "BlendSlot53"},
    {54, Gate::kSSE2, "BlendSlot54"},
    {56, Gate::kSSE2, "BlendMultiplyOpacity8", kOpacityArguments,
     "d - Multiply(k, d - Multiply(s, d))"},
    {66, Gate::kSSE2, "BlendBurnPlanes8",
     "base, destination, blend, rows, columns, base stride, destination stride, blend stride",
     "255 - Divide(255 - a, b), a from the base, b from the blend"},
    {74, Gate::kSSE2, "BlendMultiplyPlanes8", kPlanesArguments, "Multiply(a, b)"},
    {75, Gate::kSSE2, "BlendInvertMultiplyPlanes8", kPlanesArguments, "255 - Multiply(255 - a, b)"},
    {96, Gate::kSSE2, "BlendScreenShare8",
     "share, combined, rows, columns, share stride, combined stride",
     "p' = Screen(p, q), q' = Divide(p' - p, p'), p combined, q share"},
    {97, Gate::kSSE2, "BlendMultiplyPlanesInvert8",
     "first, second, destination, rows, columns, first stride, second stride, destination stride, "
     "invert first, invert second, invert result",
     "Multiply(a, b), each of a, b and the result complemented where its flag is set"},
    {106, Gate::kSSE2, "BlendColorWhereZero8",
     "mask, destination, rows, columns, mask stride, destination stride, colour",
     "m = 0: c, else d"},
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
