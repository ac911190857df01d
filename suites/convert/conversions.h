// Conversions between ranges of samples, suite conv slots 18 and 19. Full intensity is
// 255 in 8 bits, 0x8000 in the host's 16 bits and 0xFFFF in the full range.
#pragma once

#include "common/forms.h"
#include "suites/convert/signatures.h"

namespace vantrix {

// In place, between two pairs of ranges:
//   0xFFFF to 0x8000   v x 32768 / 65535, rounded to nearest
//   0x8000 to 0xFFFF   v x 65535 / 32768, halves up; above 0x7FFF always 0xFFFF
// Any other pair goes to the host's own routine with all arguments as they came; its
// result is returned, else 0.
template <class Form>
uint64_t RescaleWords(uint16_t* samples, uint32_t fromMaximum, uint32_t toMaximum, int32_t rows,
                      int32_t width, int32_t stride);

// Each sample v becomes v x 32768 / 255, rounded to nearest.
template <class Form>
void Expand8To16(const uint8_t* source, uint16_t* destination, int32_t rows, int32_t width,
                 int32_t sourceStride, int32_t destinationStride);

}  // namespace vantrix
