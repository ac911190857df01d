#include "suites/resample/install.h"

#include <array>

namespace vantrix {
namespace {

constexpr std::array<Kernel, 0> kKernels;

}  // namespace

std::span<const Kernel> ResampleKernels() { return kKernels; }

int32_t InstallResampleRoutines(const SuiteParameterBlock*) {
  Install<resampleSuite, kResampleSlots, kKernels>(processorFeatures);
  return 1;
}

}  // namespace vantrix
