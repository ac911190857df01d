// The argument lists of the selection routines.
//
// Rows, widths, counts, lengths (in entries) and steps are signed 32-bit. If a count is below 1,
// nothing is done, except in classification (classify.h). A step may be negative.
#pragma once

#include <cstdint>

namespace vantrix {

using SpreadMarkRoutine = void(uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes);

// The result is a MaskClass.
using Classify8Routine = int32_t(const uint8_t* data, int32_t rows, int32_t width,
                                 int32_t rowBytes);
using Classify16Routine = int32_t(const uint16_t* data, int32_t rows, int32_t width,
                                  int32_t rowBytes);

// Steps of the 8-bit routine are in entries, of the 16-bit routine in bytes.
using Propagate8Routine = void(uint8_t* priority, uint8_t* value, int32_t lineCount,
                               int32_t lineLength, int32_t lineStep, int32_t entryStep);
using Propagate16Routine = void(uint16_t* priority, uint16_t* value, int32_t lineCount,
                                int32_t lineLength, int32_t lineStep, int32_t entryStep);

// How selected a mask is: all entries empty, all below half, some below half and some not, all at
// half or above, all full.
struct MaskClass {
  enum : int32_t { kEmpty, kBelowHalf, kMixed, kFromHalf, kFull };
};

}  // namespace vantrix
