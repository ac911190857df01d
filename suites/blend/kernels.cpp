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
    {7, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendDarkenMasked8<F>>; })},
    {8, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendDarkenColorMasked8<F>>; })},
    {10, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendLightenMasked8<F>>; })},
    {11, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendLightenColorMasked8<F>>; })},
    {22, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendMultiplyMasked8<F>>; })},
    {24, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendMultiply8<F>>; })},
    {26, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendScreenColorMasked8<F>>; })},
    {27, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendScreen8<F>>; })},
    {28, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendLighten8<F>>; })},
    {29, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendDarken8<F>>; })},
    {30, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendThresholdMasked8<F>>; })},
    {31, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendColorThresholdMasked8<F>>; })},
    {47, Entry<BlendOverlayMasked8<Form>>},
    {48, Entry<BlendOverlayColorMasked8<Form>>},
    {49, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendOverlay8<F>>; })},
    {50, Entry<BlendHardLightMasked8<Form>>},
    {51, Entry<BlendHardLightColorMasked8<Form>>},
    {52, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendHardLight8<F>>; })},
    {56, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendMultiplyOpacity8<F>>; })},
    {57, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendScreenOpacity8<F>>; })},
    {58, Entry<BlendOverlayOpacity8<Form>>},
    {59, Entry<BlendHardLightOpacity8<Form>>},
    {66, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendBurnPlanes8<F>>; })},
    {74, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendMultiplyPlanes8<F>>; })},
    {75, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendInvertMultiplyPlanes8<F>>; })},
    {96, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendScreenShare8<F>>; })},
    {97, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendMultiplyPlanesInvert8<F>>; })},
    {106, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BlendColorWhereZero8<F>>; })},
};

}  // namespace

template <>
Builds BlendKernels::In<VX_FORM>() {
  return kBuilds<VX_FORM>;
}

}  // namespace vantrix
