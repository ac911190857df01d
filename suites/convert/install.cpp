#include "suites/convert/install.h"

#include <array>

namespace vantrix {
namespace {

constexpr std::array<Kernel, 0> kKernels;

}  // namespace

std::span<const Kernel> ConvertKernels() { return kKernels; }

int32_t InstallConvertRoutines(const SuiteParameterBlock*) {
  Install<convertSuite, kConvertSlots, kKernels>(processorFeatures);
  return 1;
}

}  // namespace vantrix
