#include "host/services.h"

#include <cstdio>
#include <cstring>

namespace vantrix::host {

thread_local Services services;

int64_t Poll() { return ++services.polls; }

uint64_t TakeNoiseBuffer(uint8_t* base, uint32_t count, uint32_t size) {
  services.noise = {base, count, size};
  return kNoiseTaken;
}

uint32_t QueryCapability(uint32_t signature, uint32_t selector, void* answer) {
  if (signature != kHostSignature) return 0;
  uint64_t value;
  switch (selector) {
    case Code("pdbg"):
      value = services.debugsPaths;
      break;
    case Code("pdgv"):
      value = services.pathGuardValue;
      break;
    default:
      return 0;
  }
  std::memcpy(answer, &value, sizeof value);
  return 1;
}

void Assert(const char* message, const char* sourceFile, int32_t line, int32_t flag) {
  ++services.reports;
  services.report = message;
  if (services.printsReports)
    std::fprintf(stderr, "assertion: %s (%s, line %d, flag %d)\n", message, sourceFile, line, flag);
}

}  // namespace vantrix::host
