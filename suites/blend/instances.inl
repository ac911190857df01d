// Instantiates the blend kernels in one form; a unit says which as VantrixForm.
#pragma once

#include "suites/blend/modes.h"
#include "suites/blend/shapes.inl"

namespace vantrix {

template MaskedBlend UnderMask<Normal, VantrixForm>;
template ColorMaskedBlend ColorUnderMask<Normal, VantrixForm>;

}  // namespace vantrix
