// Copies under a mask with a hard edge, suite blnd slots 30, 31 and 106.
//
// A sample is selected or not; there is no mixing. In the groups of 16 that start at the
// destination's first 16-byte boundary every sample may be written, those not selected with their
// own value. Before and after these groups only selected samples are written.
//
// A source or mask may be the destination itself, or overlap it in any way.
#pragma once

#include "suites/blend/signatures.h"

namespace vantrix {

// d' = s where the mask is 128 or more.
template <class Form>
MaskedBlend BlendThresholdMasked8;

// d' = the colour where the mask is 128 or more.
template <class Form>
ColorMaskedBlend BlendColorThresholdMasked8;

// d' = the colour where the mask is 0.
template <class Form>
MaskFirstBlend BlendColorWhereZero8;

}  // namespace vantrix
