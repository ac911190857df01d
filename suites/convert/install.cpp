#include "suites/convert/install.h"

#include "suites/convert/conversions.h"

namespace vantrix {
namespace {

constexpr Kernel kKernels[] = {
    {.slot = 18, .scalar = Entry<Expand8To16<OneSample>>, .sse2 = Entry<Expand8To16<Sse2>>},
    {.slot = 19, .scalar = Entry<RescaleWords<OneSample>>, .sse2 = Entry<RescaleWords<Sse2>>},
};

}  // namespace

std::span<const Kernel> ConvertKernels() { return kKernels; }

int32_t InstallConvertRoutines(const SuiteParameterBlock*) {
  Install<convertSuite, kConvertSlots, kKernels>(processorFeatures);
  return 1;
}

}  // namespace vantrix
