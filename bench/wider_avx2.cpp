// The blends in 32-byte registers, for measuring what these would bring: the kernels' own
// text, in a form that is not installed.
#include "common/forms.h"

using VantrixForm = vantrix::Avx2;
#include "bench/bench.h"
#include "suites/blend/instances.inl"
#include "suites/blend/kernels.h"

namespace vantrix::bench {
namespace {

template <auto& kKernel>
bool Wider(uint16_t slot) {
  return CompeteAsTwin("AVX2", kBlend, slot, &kKernel);
}

[[maybe_unused]] const bool kCompete[] = {
    Wider<BlendMasked8<Avx2>>(2),
    Wider<BlendColorMasked8<Avx2>>(3),
    Wider<BlendDarkenMasked8<Avx2>>(7),
    Wider<BlendLightenMasked8<Avx2>>(10),
    Wider<BlendMultiplyMasked8<Avx2>>(22),
    Wider<BlendMultiply8<Avx2>>(24),
    Wider<BlendScreenColorMasked8<Avx2>>(26),
    Wider<BlendScreen8<Avx2>>(27),
    Wider<BlendOverlayMasked8<Avx2>>(47),
    Wider<BlendOverlay8<Avx2>>(49),
    Wider<BlendHardLightMasked8<Avx2>>(50),
    Wider<BlendHardLight8<Avx2>>(52),
    Wider<BlendMultiplyOpacity8<Avx2>>(56),
    Wider<BlendScreenOpacity8<Avx2>>(57),
    Wider<BlendOverlayOpacity8<Avx2>>(58),
    Wider<BlendHardLightOpacity8<Avx2>>(59),
    Wider<BlendBurnPlanes8<Avx2>>(66),
    Wider<BlendMultiplyPlanes8<Avx2>>(74),
    Wider<BlendInvertMultiplyPlanes8<Avx2>>(75),
    Wider<BlendScreenShare8<Avx2>>(96),
    Wider<BlendMultiplyPlanesInvert8<Avx2>>(97),
};

}  // namespace
}  // namespace vantrix::bench
