// The slots of suite rsmp that the plug-in writes.
#pragma once

#include "plugin/base/slots.h"

namespace vantrix {

inline constexpr char kHorizontalArguments[] =
    "source, destination, rows, width, offsets, phases, source stride, destination stride, "
    "tap count, weights";
inline constexpr char kVerticalArguments[] =
    "source, destination, output rows, width, offsets, phases, source stride, destination stride, "
    "tap count, weights";

// In the rules, t is a tap's sample, w its weight, sums run over an item's taps, and n is
// the number of samples of a sum. With 0 or 1 taps the sample after the named one is
// copied, unless it says otherwise.
inline constexpr char kHorizontal8Rule[] = "(8192 + sum of t w) >> 14, clamped to 0..255";
inline constexpr char kVertical8Rule[] =
    "(8192 + sum of t w) >> 14, clamped to 0..255; rows are copied by memo 0";

// Slots 5 and 6 stand under two flags: either brings them, and the later line wins.
inline constexpr Slot kResampleSlots[] = {
    {7, Gate::kSSE, "ResampleRowsStepped8",
     "source, destination, rows, width, row lengths, source stride, destination stride",
     "the row stretched to its length about its middle; length 0: filled by memo 3"},
    {5, Gate::kSSE, "FilterResampleHorizontal8", kHorizontalArguments, kHorizontal8Rule},
    {6, Gate::kSSE, "FilterResampleVertical8", kVerticalArguments, kVertical8Rule},
    {18, Gate::kSSE, "SampleAtPositions1D8",
     "source, destination, count, source length, positions, mode",
     "mode 0: the nearest sample; else first + SignedMultiply(f, second - first)"},
    {19, Gate::kSSE, "SampleAtPositions2D8",
     "source, destination, count, source width, source height, positions, source stride, mode",
     "as slot 18, along x and then along y"},
    {24, Gate::kSSE, "BoxAverageArea8",
     "source, destination, output rows, output columns, block width, block height, source stride, "
     "destination stride",
     "(sum + n / 2) x (16777216 / n) >> 24 of each block"},
    {13, Gate::kSSE, "FilterResampleHorizontal16", kHorizontalArguments,
     "(8192 + sum of t w) >> 14, clamped to 0..32768"},
    {5, Gate::kSSE2, "FilterResampleHorizontal8", kHorizontalArguments, kHorizontal8Rule},
    {6, Gate::kSSE2, "FilterResampleVertical8", kVerticalArguments, kVertical8Rule},
    {3, Gate::kSSE2, "BoxAverageRows8",
     "source, destination, output rows, width, row counts, source stride, destination stride",
     "(sum + n / 2) x (16777216 / n) >> 24 of n rows; a count of 0 skips its output row"},
    {27, Gate::kSSE2, "FilterResampleVertical32F", kVerticalArguments,
     "(0 + t w + t w ...) x 2^-14; rows are copied by memo 0"},
    {26, Gate::kSSE41, "FilterResampleHorizontal32F", kHorizontalArguments,
     "(0 + t w + t w ...) x 2^-14; of one tap t x 2^-14 x w"},
};
static_assert(CountGated(kResampleSlots, Gate::kSSE) == 7);
static_assert(CountGated(kResampleSlots, Gate::kSSE2) == 4);
static_assert(CountGated(kResampleSlots, Gate::kSSE41) == 1);

}  // namespace vantrix
