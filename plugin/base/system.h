// What the plug-in asks of the processor and of the system, as a plain table, so
// that tests can play any processor and any failure.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantrix {

struct CpuidWords {
  uint32_t eax = 0, ebx = 0, ecx = 0, edx = 0;
};

// A 32-byte record of GetLogicalProcessorInformation.
struct ProcessorRelation {
  uint64_t processorMask;
  int32_t relationship;
  uint32_t unused[5];
};
static_assert(sizeof(ProcessorRelation) == 32);
inline constexpr int32_t kRelationProcessorCore = 0;

inline constexpr uint32_t kErrorInsufficientBuffer = 122;

using RegistryKey = void*;

struct System {
  CpuidWords (*cpuid)(uint32_t leaf, uint32_t subLeaf);

  // Which registers the system saves, one bit for each kind (XCR0). To be called only if bit 27 of
  // leaf 1 ECX is set: otherwise the instruction faults.
  uint64_t (*enabledState)();

  // Whether an SSE instruction executes without a fault.
  bool (*executesSSE)();

  // Fills at most *bytes bytes of records, sets *bytes to the length of all.
  bool (*logicalProcessorInformation)(ProcessorRelation* records, uint32_t* bytes);
  uint32_t (*lastError)();
  uint32_t (*processorCount)();
  void* (*allocate)(size_t bytes);
  void (*release)(void* memory);

  // Opens a key under the local-machine root with query access; null if there is none.
  RegistryKey (*openRegistryKey)(const char* path);
  bool (*queryRegistryWord)(RegistryKey key, const char* name, uint32_t* value);
  void (*closeRegistryKey)(RegistryKey key);
};

// Read from the processor, on any system.
CpuidWords ReadCpuid(uint32_t leaf, uint32_t subLeaf);
uint64_t ReadEnabledState();

// The machine that the plug-in runs on.
extern const System kThisSystem;

}  // namespace vantrix
