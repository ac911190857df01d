// The host's core services.
#pragma once

#include <cstdint>

#include "plugin/interface.h"

namespace vantrix::host {

// What the services answer, and what they were asked and told.
struct Services {
  bool debugsPaths = false;
  uint64_t pathGuardValue = 0;
  bool printsReports = true;

  int polls = 0;
  int reports = 0;
  uint32_t noiseBytes = 0;
};
// Each thread's own, as a host's threads count for themselves.
extern thread_local Services services;

int64_t Poll();
uint64_t TakeNoiseBuffer(uint8_t* base, uint32_t count, uint32_t size);
uint32_t QueryCapability(uint32_t signature, uint32_t selector, void* answer);
void Assert(const char* message, const char* sourceFile, int32_t line, int32_t flag);

}  // namespace vantrix::host
