// The slots of suite memo that the plug-in writes.
#pragma once

#include "plugin/base/slots.h"

namespace vantrix {

inline constexpr Slot kMemorySlots[] = {
    {0, Gate::kSSE2OrSSSE3, "CopyBytes", "source, destination, bytes",
     "copy, as if all were read first"},
    {1, Gate::kSSE2OrSSSE3, "CopyRect",
     "source, destination, rows, row bytes, source stride, destination stride",
     "copy row by row; nothing where source and destination are one"},
    {3, Gate::kSSE2, "FillBytes", "destination, bytes, value", "every byte = value"},
    {4, Gate::kSSE2, "FillRect", "destination, rows, width, stride, value", "every byte = value"},
    {11, Gate::kSSE2, "MemorySlot11"},
    {17, Gate::kSSE2, "BytesAllEqual", "pointer, bytes, value", "1 if every byte = value, else 0"},
    {18, Gate::kSSE2, "RectAllEqual", "pointer, rows, width, stride, value",
     "1 if every byte = value, else 0"},
    {65, Gate::kSSE2, "FillWords", "destination, count, value", "every 16-bit value = value"},
    {66, Gate::kSSE2, "FillWordRect", "destination, rows, width, stride, value",
     "every 16-bit value = value"},
    {67, Gate::kSSE2, "MemorySlot67"},
    {83, Gate::kSSE2, "MemorySlot83"},
    {102, Gate::kSSE2, "MemorySlot102"},
    {136, Gate::kSSE2, "MemorySlot136"},
};
static_assert(CountGated(kMemorySlots, Gate::kSSE2) == 11 &&
              CountGated(kMemorySlots, Gate::kSSE2OrSSSE3) == 2);

}  // namespace vantrix
