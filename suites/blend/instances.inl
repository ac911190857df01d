// Instantiates the blend kernels in one form; a unit says which as VantrixForm.
#pragma once

#include "suites/blend/division.inl"
#include "suites/blend/extremes.inl"
#include "suites/blend/mixing_instances.inl"
#include "suites/blend/products.inl"
#include "suites/blend/threshold.inl"

namespace vantrix {

template PlaneBlend AtFullStrength<modes::Screen, VantrixForm>;
template OpacityBlend WithOpacity<modes::Screen, VantrixForm>;
template ColorMaskedBlend ColorUnderMask<modes::Screen, VantrixForm>;
template PlaneBlend AtFullStrength<modes::Overlay, VantrixForm>;
template PlaneBlend AtFullStrength<modes::HardLight, VantrixForm>;
template PlaneBlend AtFullStrength<modes::Multiply, VantrixForm>;
template OpacityBlend WithOpacity<modes::Multiply, VantrixForm>;
template MaskedBlend UnderMask<modes::Multiply, VantrixForm>;
template PlaneBlend ChangedBlocks<modes::Lighten, VantrixForm>;
template MaskedBlend UnderMask<modes::Lighten, VantrixForm>;
template ColorMaskedBlend ColorUnderMask<modes::Lighten, VantrixForm>;
template PlaneBlend ChangedBlocks<modes::Darken, VantrixForm>;
template MaskedBlend UnderMask<modes::Darken, VantrixForm>;
template ColorMaskedBlend ColorUnderMask<modes::Darken, VantrixForm>;

template PlanesBlend BlendMultiplyPlanes8<VantrixForm>;
template PlanesBlend BlendInvertMultiplyPlanes8<VantrixForm>;
template InvertBlend BlendMultiplyPlanesInvert8<VantrixForm>;
template PlanesBlend BlendBurnPlanes8<VantrixForm>;
template ShareBlend BlendScreenShare8<VantrixForm>;
template MaskedBlend BlendThresholdMasked8<VantrixForm>;
template ColorMaskedBlend BlendColorThresholdMasked8<VantrixForm>;
template MaskFirstBlend BlendColorWhereZero8<VantrixForm>;

}  // namespace vantrix
