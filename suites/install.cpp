#include "suites/install.h"

#include "plugin/install.h"
#include "plugin/instruction_sets.h"
#include "suites/blend/slots.h"
#include "suites/convert/slots.h"
#include "suites/filter/slots.h"
#include "suites/kernels.h"
#include "suites/memory/slots.h"
#include "suites/paint/slots.h"
#include "suites/path/debugging.h"
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

}  // namespace

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
