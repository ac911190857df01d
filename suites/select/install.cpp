#include "suites/select/install.h"

#include "suites/select/classify.h"
#include "suites/select/marks.h"
#include "suites/select/propagate.h"

namespace vantrix {
namespace {

constexpr Kernel kKernels[] = {
    {.slot = 26,
     .scalar = Entry<SelectSpreadMark8<OneSample>>,
     .sse2 = Entry<SelectSpreadMark8<Sse2>>},
    {.slot = 33, .sse2 = Entry<SelectClassify8<Sse2>>},
    {.slot = 35,
     .scalar = Entry<SelectPropagate8<OneSample>>,
     .sse2 = Entry<SelectPropagate8<Sse2>>},
    {.slot = 73,
     .scalar = Entry<SelectPropagate16<OneSample>>,
     .sse2 = Entry<SelectPropagate16<Sse2>>},
    {.slot = 75, .sse2 = Entry<SelectClassify16<Sse2>>},
};

}  // namespace

std::span<const Kernel> SelectKernels() { return kKernels; }

int32_t InstallSelectRoutines(const SuiteParameterBlock*) {
  Install<selectSuite, kSelectSlots, kKernels>(processorFeatures);
  return 1;
}

}  // namespace vantrix
