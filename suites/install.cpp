#include "suites/install.h"

#include "plugin/core.h"
#include "plugin/install.h"
#include "plugin/instruction_sets.h"
#include "suites/all_builds.h"
#include "suites/blend/slots.h"
#include "suites/convert/slots.h"
#include "suites/filter/slots.h"
#include "suites/kernels.h"
#include "suites/memory/slots.h"
#include "suites/paint/slots.h"
#include "suites/path/debugging.h"
#include "suites/path/fill_array.h"
#include "suites/path/slots.h"
#include "suites/resample/slots.h"
#include "suites/select/slots.h"

namespace vantrix {
namespace {

template <auto& kSuite, auto& kSlots, class Kernels>
int32_t InstallSuite() {
  Install<kSuite, kSlots, Kernels>(processorFeatures, instructionSets);
  return 1;
}

template <auto& kSuite, auto& kSlots>
bool IsPassThroughOf(Routine routine) {
  return [&]<size_t... kLine>(std::index_sequence<kLine...>) {
    return ((routine == Entry<PassThrough<kSuite, kSlots[kLine].index>>()) || ...);
  }(std::make_index_sequence<std::size(kSlots)>{});
}

}  // namespace

bool IsOwn(Routine routine) {
  bool isBuild = false;
  ForEachBuild(
      [&]<class>(SuiteIndex, const Build& build) { isBuild |= build.routine() == routine; });
  return isBuild || routine == Entry<ApplyFillArrayOperationChecked>() ||
         routine == Entry<NoiseBufferHook>() || IsPassThroughOf<blendSuite, kBlendSlots>(routine) ||
         IsPassThroughOf<convertSuite, kConvertSlots>(routine) ||
         IsPassThroughOf<filterSuite, kFilterSlots>(routine) ||
         IsPassThroughOf<memorySuite, kMemorySlots>(routine) ||
         IsPassThroughOf<paintSuite, kPaintSlots>(routine) ||
         IsPassThroughOf<pathSuite, kPathSlots>(routine) ||
         IsPassThroughOf<resampleSuite, kResampleSlots>(routine) ||
         IsPassThroughOf<selectSuite, kSelectSlots>(routine);
}

int32_t InstallBlendRoutines(const SuiteParameterBlock*) {
  return InstallSuite<blendSuite, kBlendSlots, BlendKernels>();
}
int32_t InstallConvertRoutines(const SuiteParameterBlock*) {
  return InstallSuite<convertSuite, kConvertSlots, ConvertKernels>();
}
int32_t InstallFilterRoutines(const SuiteParameterBlock*) {
  return InstallSuite<filterSuite, kFilterSlots, FilterKernels>();
}
int32_t InstallMemoryRoutines(const SuiteParameterBlock*) {
  return InstallSuite<memorySuite, kMemorySlots, MemoryKernels>();
}
int32_t InstallPaintRoutines(const SuiteParameterBlock*) {
  return InstallSuite<paintSuite, kPaintSlots, PaintKernels>();
}
int32_t InstallResampleRoutines(const SuiteParameterBlock*) {
  return InstallSuite<resampleSuite, kResampleSlots, ResampleKernels>();
}
int32_t InstallSelectRoutines(const SuiteParameterBlock*) {
  return InstallSuite<selectSuite, kSelectSlots, SelectKernels>();
}
int32_t InstallPathRoutines(const SuiteParameterBlock*) {
  AskForPathDebugging();
  const int32_t outcome = InstallSuite<pathSuite, kPathSlots, PathKernels>();
  InstallPathChecks();
  return outcome;
}

}  // namespace vantrix
