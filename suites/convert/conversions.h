// Conversions between ranges of samples, suite conv slots 18 and 19. Full intensity is
// 255 in 8 bits, 0x8000 in the host's 16 bits and 0xFFFF in the full range.
#pragma once

#include "suites/convert/signatures.h"

namespace vantrix {

// Converts in place, for two pairs of ranges:
//   0xFFFF to 0x8000   v x 32768 / 65535, rounded to nearest
//   0x8000 to 0xFFFF   v x 65535 / 32768, halves up; above 0x7FFF always 0xFFFF
// and returns 0. For any other pair, calls the host's own routine with the arguments as they came,
// and returns its result.
template <class Form>
RescaleWordsRoutine RescaleWords;

// Each sample v becomes v x 32768 / 255, rounded to nearest.
template <class Form>
Expand8To16Routine Expand8To16;

}  // namespace vantrix
