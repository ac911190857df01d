// The machine on Windows.
#include <windows.h>

#include <cstdlib>

#include "plugin/base/system.h"

namespace vantrix {
namespace {

// A function of its own: the guard covers calls, not single instructions.
[[gnu::noinline]] void ExecuteSSE() { asm volatile("xorps %%xmm0, %%xmm0" ::: "xmm0"); }

bool ExecutesSSE() {
  __try {
    ExecuteSSE();
    return true;
  } __except (EXCEPTION_EXECUTE_HANDLER) {
    return false;
  }
}

static_assert(sizeof(ProcessorRelation) == sizeof(SYSTEM_LOGICAL_PROCESSOR_INFORMATION) &&
              offsetof(ProcessorRelation, relationship) ==
                  offsetof(SYSTEM_LOGICAL_PROCESSOR_INFORMATION, Relationship) &&
              kRelationProcessorCore == RelationProcessorCore &&
              kErrorInsufficientBuffer == ERROR_INSUFFICIENT_BUFFER);

bool LogicalProcessorInformation(ProcessorRelation* records, uint32_t* bytes) {
  DWORD length = *bytes;
  const bool done = GetLogicalProcessorInformation(
      reinterpret_cast<SYSTEM_LOGICAL_PROCESSOR_INFORMATION*>(records), &length);
  *bytes = length;
  return done;
}

uint32_t LastError() { return GetLastError(); }

uint32_t ProcessorCount() {
  SYSTEM_INFO info;
  GetSystemInfo(&info);
  return info.dwNumberOfProcessors;
}

RegistryKey OpenRegistryKey(const char* path) {
  HKEY key;
  if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, path, 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS)
    return nullptr;
  return key;
}

bool QueryRegistryWord(RegistryKey key, const char* name, uint32_t* value) {
  DWORD bytes = sizeof *value;
  return RegQueryValueExA(static_cast<HKEY>(key), name, nullptr, nullptr,
                          reinterpret_cast<BYTE*>(value), &bytes) == ERROR_SUCCESS;
}

void CloseRegistryKey(RegistryKey key) { RegCloseKey(static_cast<HKEY>(key)); }

}  // namespace

const System kThisSystem = {
    ReadCpuid,       ReadEnabledState,  ExecutesSSE,      LogicalProcessorInformation,
    LastError,       ProcessorCount,    std::malloc,      std::free,
    OpenRegistryKey, QueryRegistryWord, CloseRegistryKey,
};

}  // namespace vantrix
