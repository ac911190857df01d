#include "suites/paint/install.h"

#include <array>

namespace vantrix {
namespace {

constexpr std::array<Kernel, 0> kKernels;

}  // namespace

std::span<const Kernel> PaintKernels() { return kKernels; }

int32_t InstallPaintRoutines(const SuiteParameterBlock*) {
  Install<paintSuite, kPaintSlots, kKernels>(processorFeatures);
  return 1;
}

}  // namespace vantrix
