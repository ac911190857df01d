#include "suites/blend/install.h"

#include "suites/blend/kernels.h"

namespace vantrix {
namespace {

// The builds of a kernel, which inForm names for a form. Blends that mix two samples
// have an SSSE3 build besides.
template <class InForm>
constexpr Kernel Blend(uint16_t slot, InForm inForm) {
  return {.slot = slot, .scalar = inForm(OneSample{}), .sse2 = inForm(Sse2{})};
}
template <class InForm>
constexpr Kernel Mixing(uint16_t slot, InForm inForm) {
  Kernel kernel = Blend(slot, inForm);
  kernel.ssse3 = inForm(Ssse3{});
  return kernel;
}

constexpr Kernel kKernels[] = {
    Mixing(2, []<class F>(F) { return Entry<BlendMasked8<F>>; }),
    Mixing(3, []<class F>(F) { return Entry<BlendColorMasked8<F>>; }),
    Blend(7, []<class F>(F) { return Entry<BlendDarkenMasked8<F>>; }),
    Blend(8, []<class F>(F) { return Entry<BlendDarkenColorMasked8<F>>; }),
    Blend(10, []<class F>(F) { return Entry<BlendLightenMasked8<F>>; }),
    Blend(11, []<class F>(F) { return Entry<BlendLightenColorMasked8<F>>; }),
    Blend(22, []<class F>(F) { return Entry<BlendMultiplyMasked8<F>>; }),
    Blend(24, []<class F>(F) { return Entry<BlendMultiply8<F>>; }),
    Blend(26, []<class F>(F) { return Entry<BlendScreenColorMasked8<F>>; }),
    Blend(27, []<class F>(F) { return Entry<BlendScreen8<F>>; }),
    Blend(28, []<class F>(F) { return Entry<BlendLighten8<F>>; }),
    Blend(29, []<class F>(F) { return Entry<BlendDarken8<F>>; }),
    Blend(30, []<class F>(F) { return Entry<BlendThresholdMasked8<F>>; }),
    Blend(31, []<class F>(F) { return Entry<BlendColorThresholdMasked8<F>>; }),
    Mixing(47, []<class F>(F) { return Entry<BlendOverlayMasked8<F>>; }),
    Mixing(48, []<class F>(F) { return Entry<BlendOverlayColorMasked8<F>>; }),
    Blend(49, []<class F>(F) { return Entry<BlendOverlay8<F>>; }),
    Mixing(50, []<class F>(F) { return Entry<BlendHardLightMasked8<F>>; }),
    Mixing(51, []<class F>(F) { return Entry<BlendHardLightColorMasked8<F>>; }),
    Blend(52, []<class F>(F) { return Entry<BlendHardLight8<F>>; }),
    Blend(56, []<class F>(F) { return Entry<BlendMultiplyOpacity8<F>>; }),
    Blend(57, []<class F>(F) { return Entry<BlendScreenOpacity8<F>>; }),
    Mixing(58, []<class F>(F) { return Entry<BlendOverlayOpacity8<F>>; }),
    Mixing(59, []<class F>(F) { return Entry<BlendHardLightOpacity8<F>>; }),
    Blend(66, []<class F>(F) { return Entry<BlendBurnPlanes8<F>>; }),
    Blend(74, []<class F>(F) { return Entry<BlendMultiplyPlanes8<F>>; }),
    Blend(75, []<class F>(F) { return Entry<BlendInvertMultiplyPlanes8<F>>; }),
    Blend(96, []<class F>(F) { return Entry<BlendScreenShare8<F>>; }),
    Blend(97, []<class F>(F) { return Entry<BlendMultiplyPlanesInvert8<F>>; }),
    Blend(106, []<class F>(F) { return Entry<BlendColorWhereZero8<F>>; }),
};

}  // namespace

std::span<const Kernel> BlendKernels() { return kKernels; }

int32_t InstallBlendRoutines(const SuiteParameterBlock*) {
  Install<blendSuite, kBlendSlots, kKernels>(processorFeatures);
  return 1;
}

}  // namespace vantrix
