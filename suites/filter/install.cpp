#include "suites/filter/install.h"

#include "suites/filter/convolve.h"
#include "suites/filter/deviation.h"
#include "suites/filter/differences.h"
#include "suites/filter/float_blocks.h"

namespace vantrix {
namespace {

// The builds of a kernel, which inForm names for a form.
template <class InForm>
constexpr Kernel Filter(uint16_t slot, InForm inForm) {
  return {.slot = slot, .scalar = inForm(OneSample{}), .sse2 = inForm(Sse2{})};
}

constexpr Kernel kKernels[] = {
    Filter(12, []<class F>(F) { return Entry<FilterLocalDeviation8<F>>; }),
    {.slot = 28,
     .scalar = Entry<FilterConvolveVertical8<OneSample>>,
     .sse2 = Entry<FilterConvolveVertical8<Sse2>>,
     .ssse3 = Entry<FilterConvolveVertical8<Ssse3>>},
    Filter(188, []<class F>(F) { return Entry<FilterBlockSAD128<F>>; }),
    Filter(189, []<class F>(F) { return Entry<FilterBlockSignedSAD128<F>>; }),
    Filter(191, []<class F>(F) { return Entry<FilterFloatBlock8<F>>; }),
    Filter(192, []<class F>(F) { return Entry<FilterFloatBlock12<F>>; }),
    Filter(193, []<class F>(F) { return Entry<FilterFloatBlock16<F>>; }),
    Filter(194, []<class F>(F) { return Entry<FilterFloatBlock20<F>>; }),
};

}  // namespace

std::span<const Kernel> FilterKernels() { return kKernels; }

int32_t InstallFilterRoutines(const SuiteParameterBlock*) {
  Install<filterSuite, kFilterSlots, kKernels>(processorFeatures);
  return 1;
}

}  // namespace vantrix
