// The kernels of suite blnd, in the form that this unit is compiled for.
#include "suites/blend/kernels.h"

#include "suites/blend/division.inl"
#include "suites/blend/extremes.inl"
#include "suites/blend/products.inl"
#include "suites/blend/shapes.inl"
#include "suites/blend/threshold.inl"
#include "suites/kernels.h"

namespace vantrix {
namespace {

template <class Form>
constexpr Build kBuilds[] = {
    {2, Entry<BlendMasked8<Form>>},
    {3, Entry<BlendColorMasked8<Form>>},
    {7, Entry<BlendDarkenMasked8<Form>>},
    {8, Entry<BlendDarkenColorMasked8<Form>>},
    {10, Entry<BlendLightenMasked8<Form>>},
    {11, Entry<BlendLightenColorMasked8<Form>>},
    {22, Entry<BlendMultiplyMasked8<Form>>},
    {24, Entry<BlendMultiply8<Form>>},
    {26, Entry<BlendScreenColorMasked8<Form>>},
    {27, Entry<BlendScreen8<Form>>},
    {28, Entry<BlendLighten8<Form>>},
    {29, Entry<BlendDarken8<Form>>},
    {30, Entry<BlendThresholdMasked8<Form>>},
    {31, Entry<BlendColorThresholdMasked8<Form>>},
    {47, Entry<BlendOverlayMasked8<Form>>},
    {48, Entry<BlendOverlayColorMasked8<Form>>},
    {49, Entry<BlendOverlay8<Form>>},
    {50, Entry<BlendHardLightMasked8<Form>>},
    {51, Entry<BlendHardLightColorMasked8<Form>>},
    {52, Entry<BlendHardLight8<Form>>},
    {56, Entry<BlendMultiplyOpacity8<Form>>},
    {57, Entry<BlendScreenOpacity8<Form>>},
    {58, Entry<BlendOverlayOpacity8<Form>>},
    {59, Entry<BlendHardLightOpacity8<Form>>},
    {66, Entry<BlendBurnPlanes8<Form>>},
    {74, Entry<BlendMultiplyPlanes8<Form>>},
    {75, Entry<BlendInvertMultiplyPlanes8<Form>>},
    {96, Entry<BlendScreenShare8<Form>>},
    {97, Entry<BlendMultiplyPlanesInvert8<Form>>},
    {106, Entry<BlendColorWhereZero8<Form>>},
};

}  // namespace

template <>
Builds BlendKernels::In<VX_FORM>() {
  return kBuilds<VX_FORM>;
}

}  // namespace vantrix
