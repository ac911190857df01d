// Copies under a mask with a hard edge, suite blnd slots 30, 31 and 106.
//
// A sample is selected or not; there is no mixing. In the blocks of 16 that start at
// the destination's 16-byte boundary every sample is written, with its own value where
// it is not selected. Before and after them only selected samples are written.
//
// A source or mask may be the destination itself, or overlap it in any way.
#pragma once

#include "suites/blend/signatures.h"

namespace vantrix {

// d' = s where the mask is 128 or more.
template <class Form>
void BlendThresholdMasked8(const uint8_t* source, uint8_t* destination, const uint8_t* mask,
                           int32_t rows, int32_t columns, int32_t sourceStride,
                           int32_t destinationStride, int32_t maskStride);

// d' = the colour where the mask is 128 or more.
template <class Form>
void BlendColorThresholdMasked8(uint32_t color, uint8_t* destination, const uint8_t* mask,
                                int32_t rows, int32_t columns, int32_t destinationStride,
                                int32_t maskStride);

// d' = the colour where the mask is 0.
template <class Form>
void BlendColorWhereZero8(const uint8_t* mask, uint8_t* destination, int32_t rows, int32_t columns,
                          int32_t maskStride, int32_t destinationStride, uint32_t color);

}  // namespace vantrix
