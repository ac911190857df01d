// Instantiates the blends that mix two samples (Mix in common/rounding.h), which SSSE3
// does in half the instructions, in one form; a unit says which as VantrixForm.
#pragma once

#include "suites/blend/shapes.inl"

namespace vantrix {

template MaskedBlend UnderMask<modes::Normal, VantrixForm>;
template ColorMaskedBlend ColorUnderMask<modes::Normal, VantrixForm>;
template OpacityBlend WithOpacity<modes::Overlay, VantrixForm>;
template MaskedBlend UnderMask<modes::Overlay, VantrixForm>;
template ColorMaskedBlend ColorUnderMask<modes::Overlay, VantrixForm>;
template OpacityBlend WithOpacity<modes::HardLight, VantrixForm>;
template MaskedBlend UnderMask<modes::HardLight, VantrixForm>;
template ColorMaskedBlend ColorUnderMask<modes::HardLight, VantrixForm>;

}  // namespace vantrix
