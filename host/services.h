// The host's core services.
#pragma once

#include <cstdint>
#include <string>

#include "plugin/base/interface.h"

namespace vantrix::host {

// What the services return, and what they received.
struct Services {
  bool debugsPaths = false;
  uint64_t pathGuardValue = 0;
  bool printsReports = true;

  int polls = 0;
  int reports = 0;
  std::string report;  // the last one
  struct Noise {
    uint8_t* base = nullptr;
    uint32_t count = 0, size = 0;
    friend bool operator==(const Noise&, const Noise&) = default;
  } noise;
};
// Each thread has its own and counts its own calls, as in a host.
extern thread_local Services services;

// What TakeNoiseBuffer returns.
inline constexpr uint64_t kNoiseTaken = 0x0123456789ABCDEF;

int64_t Poll();
uint64_t TakeNoiseBuffer(uint8_t* base, uint32_t count, uint32_t size);
uint32_t QueryCapability(uint32_t signature, uint32_t selector, void* answer);
void Assert(const char* message, const char* sourceFile, int32_t line, int32_t flag);

}  // namespace vantrix::host
