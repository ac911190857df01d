#include "plugin/startup.h"

#include <xmmintrin.h>

#include "common/tables.h"
#include "plugin/base/instruction_sets.h"
#include "plugin/base/suites.h"
#include "plugin/install.h"

namespace vantrix {
namespace {

constexpr uint32_t kFlushToZero = 0x8000;

}  // namespace

int32_t Startup(const SuiteParameterBlock* block, int16_t* result, const System& system) {
  processorFeatures = DetectFeatures(system);
  instructionSets = DetectInstructionSets(system, processorFeatures);
  *result = AcquireSuites(block, IsOwn);
  if (*result != 0) return *result;
  BuildSharedTables();
  if (processorFeatures.osSupportsSSE) _mm_setcsr(_mm_getcsr() | kFlushToZero);

  int32_t outcome = 0;
  for (Installer* install : kInstallers) outcome = install(block);

  if (processorFeatures.hasSSE2) FillSSE2Constants();
  return outcome;
}

}  // namespace vantrix
