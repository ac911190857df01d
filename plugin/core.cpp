#include "plugin/core.h"

#include "plugin/base/suites.h"

namespace vantrix {

NoiseBuffer noiseBuffer;

uint64_t NoiseBufferHook(uint8_t* base, uint32_t count, uint32_t size) {
  noiseBuffer = {base, count, size, base + size};
  return Call<NoiseBufferRoutine>(coreSuite.saved[kNoiseBuffer])(base, count, size);
}

int32_t InstallCoreRoutines(const SuiteParameterBlock*) {
  coreSuite.live[kNoiseBuffer] = reinterpret_cast<Routine>(NoiseBufferHook);
  return 1;
}

int32_t InstallDisplayRoutines(const SuiteParameterBlock*) { return 1; }

}  // namespace vantrix
