#include "suites/select/install.h"

#include <array>

namespace vantrix {
namespace {

constexpr std::array<Kernel, 0> kKernels;

}  // namespace

std::span<const Kernel> SelectKernels() { return kKernels; }

int32_t InstallSelectRoutines(const SuiteParameterBlock*) {
  Install<selectSuite, kSelectSlots, kKernels>(processorFeatures);
  return 1;
}

}  // namespace vantrix
