// The slots of suite filt that the plug-in writes.
#pragma once

#include "plugin/base/slots.h"

namespace vantrix {

inline constexpr char kFloatBlockArguments[] = "input, count, matrix, host's, host's, output";

inline constexpr Slot kFilterSlots[] = {
    {12, Gate::kAlways, "FilterLocalDeviation8",
     "source, destination, rows, columns, source stride, destination stride",
     "root of (9 Q - S S) / 21 of the 3 x 3 samples, quotient and root rounded down"},
    {34, Gate::kSSE, "FilterSlot34"},
    {28, Gate::kSSE2, "FilterConvolveVertical8",
     "source, destination, rows, columns, source stride, destination stride, kernel",
     "high byte of (128 + sum of w s) modulo 65536 over the window's rows"},
    {31, Gate::kSSE2, "FilterSlot31"},
    {75, Gate::kSSE2, "FilterSlot75"},
    {74, Gate::kSSE2, "FilterSlot74"},
    {106, Gate::kSSE2, "FilterSlot106"},
    {189, Gate::kSSE2, "FilterBlockSignedSAD128", "a, b, direction",
     "sum of |(~direction & max(a - b, 0)) - (direction & max(b - a, 0))| over 128 bytes"},
    {188, Gate::kSSE2, "FilterBlockSAD128", "a, b", "sum of |a - b| over 128 bytes"},
    {191, Gate::kSSE2, "FilterFloatBlock8", kFloatBlockArguments,
     "output[4 k + r] = sum of matrix[r][j] input[4 k + j], j = 0 .. 7 in order"},
    {192, Gate::kSSE2, "FilterFloatBlock12", kFloatBlockArguments,
     "output[4 k + r] = sum of matrix[r][j] input[4 k + j], j = 0 .. 11 in order"},
    {193, Gate::kSSE2, "FilterFloatBlock16", kFloatBlockArguments,
     "output[4 k + r] = sum of matrix[r][j] input[4 k + j], j = 0 .. 15 in order"},
    {194, Gate::kSSE2, "FilterFloatBlock20", kFloatBlockArguments,
     "output[4 k + r] = sum of matrix[r][j] input[4 k + j], j = 0 .. 19 in order"},
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
