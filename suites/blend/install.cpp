#include "suites/blend/install.h"

#include "suites/blend/kernels.h"

namespace vantrix {
namespace {

template <class InForm>
constexpr Kernel InAllForms(uint16_t slot, InForm inForm) {
  return {slot, inForm(OneSample{}), inForm(Sse2{}), inForm(Ssse3{})};
}

constexpr Kernel kKernels[] = {
    InAllForms(2, []<class Form>(Form) { return Entry<BlendMasked8<Form>>; }),
    InAllForms(3, []<class Form>(Form) { return Entry<BlendColorMasked8<Form>>; }),
};

}  // namespace

std::span<const Kernel> BlendKernels() { return kKernels; }

int32_t InstallBlendRoutines(const SuiteParameterBlock*) {
  Install<blendSuite, kBlendSlots, kKernels>(processorFeatures);
  return 1;
}

}  // namespace vantrix
