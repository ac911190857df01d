// The machine on a POSIX system.
#include <unistd.h>

#include <cstdlib>

#include "plugin/base/system.h"

namespace vantrix {
namespace {

// The system says which registers it saves in XCR0, bit 1 for SSE's; before there was
// such a register every 64-bit system saved them. A test by execution would have to
// take the host's signal handler away for a moment.
bool ExecutesSSE() {
  constexpr uint32_t kHasControlRegister = 1u << 27;
  if (!(ReadCpuid(1, 0).ecx & kHasControlRegister)) return true;
  return ReadEnabledState() >> 1 & 1;
}

// There is no such query here, so the processor count stands for both counts.
bool LogicalProcessorInformation(ProcessorRelation*, uint32_t*) { return false; }
uint32_t LastError() { return 0; }

uint32_t ProcessorCount() {
  const long count = sysconf(_SC_NPROCESSORS_ONLN);
  return count > 0 ? static_cast<uint32_t>(count) : 1;
}

RegistryKey OpenRegistryKey(const char*) { return nullptr; }
bool QueryRegistryWord(RegistryKey, const char*, uint32_t*) { return false; }
void CloseRegistryKey(RegistryKey) {}

}  // namespace

const System kThisSystem = {
    ReadCpuid,       ReadEnabledState,  ExecutesSSE,      LogicalProcessorInformation,
    LastError,       ProcessorCount,    std::malloc,      std::free,
    OpenRegistryKey, QueryRegistryWord, CloseRegistryKey,
};

}  // namespace vantrix
