#include "suites/filter/install.h"

#include <array>

namespace vantrix {
namespace {

constexpr std::array<Kernel, 0> kKernels;

}  // namespace

std::span<const Kernel> FilterKernels() { return kKernels; }

int32_t InstallFilterRoutines(const SuiteParameterBlock*) {
  Install<filterSuite, kFilterSlots, kKernels>(processorFeatures);
  return 1;
}

}  // namespace vantrix
