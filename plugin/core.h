// The core suite's installer and the noise buffer that its one hook records.
#pragma once

#include "plugin/base/interface.h"

namespace vantrix {

// The host's buffer of noise values, as last told; zero until the first call.
struct NoiseBuffer {
  uint8_t* base;
  uint32_t count;
  uint32_t size;
  uint8_t* end;  // base + size bytes
};
extern NoiseBuffer noiseBuffer;

// Core slot 3: records the host's buffer, then calls the host's own routine with
// the same arguments and returns its result. The four values are written without
// a lock: a host sets its buffer before it runs kernels that read it.
uint64_t NoiseBufferHook(uint8_t* base, uint32_t count, uint32_t size);

int32_t InstallCoreRoutines(const SuiteParameterBlock* block);

// Installs nothing; the suite is acquired so that a later version can fill it.
int32_t InstallDisplayRoutines(const SuiteParameterBlock* block);

}  // namespace vantrix
