#include "suites/resample/install.h"

#include "suites/resample/box.h"
#include "suites/resample/horizontal.h"
#include "suites/resample/positions.h"
#include "suites/resample/stepped.h"
#include "suites/resample/vertical.h"

namespace vantrix {
namespace {

template <class Sample>
constexpr Kernel Horizontal(uint16_t slot) {
  return {.slot = slot,
          .scalar = Entry<FilterHorizontalOneByOne<Sample>>,
          .sse2 = Entry<FilterHorizontalWide<Sample, ByGather>>,
          .ssse3 = Entry<FilterHorizontalWide<Sample, ByWindow, ByGather>>};
}

template <class InForm>
constexpr Kernel InBothForms(uint16_t slot, InForm inForm) {
  return {.slot = slot, .scalar = inForm(OneSample{}), .sse2 = inForm(Sse2{})};
}

constexpr Kernel kKernels[] = {
    InBothForms(3, []<class Form>(Form) { return Entry<BoxAverageRows8<Form>>; }),
    Horizontal<uint8_t>(5),
    InBothForms(6, []<class Form>(Form) { return Entry<FilterResampleVertical8<Form>>; }),
    {.slot = 7, .scalar = Entry<ResampleRowsStepped8>},
    Horizontal<uint16_t>(13),
    InBothForms(18, []<class Form>(Form) { return Entry<SampleAtPositions1D8<Form>>; }),
    InBothForms(19, []<class Form>(Form) { return Entry<SampleAtPositions2D8<Form>>; }),
    {.slot = 24,
     .scalar = Entry<BoxAverageArea8<OneSample>>,
     .sse2 = Entry<BoxAverageArea8<Sse2>>,
     .ssse3 = Entry<BoxAverageArea8<Ssse3>>},
    Horizontal<float>(26),
    InBothForms(27, []<class Form>(Form) { return Entry<FilterResampleVertical32F<Form>>; }),
};

}  // namespace

std::span<const Kernel> ResampleKernels() { return kKernels; }

int32_t InstallResampleRoutines(const SuiteParameterBlock*) {
  Install<resampleSuite, kResampleSlots, kKernels>(processorFeatures);
  return 1;
}

}  // namespace vantrix
