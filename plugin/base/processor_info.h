// What the processor says of itself.
#pragma once

#include "plugin/base/system.h"

namespace vantrix {

// CPUID results, zero until filled. A missing leaf reads as 0.
struct ProcessorInfo {
  uint32_t processorType;    // leaf 1 EAX bits 12-13
  uint32_t family;           // bits 8-11
  uint32_t model;            // bits 4-7
  uint32_t extendedFamily;   // bits 20-27
  uint32_t extendedModel;    // bits 16-19
  uint32_t stepping;         // bits 0-3
  uint32_t features1Edx;     // leaf 1
  uint32_t features1Ecx;     // leaf 1
  uint32_t extFeaturesEcx;   // leaf 0x80000001
  uint32_t brandIndex;       // leaf 1 EBX bits 0-3
  uint32_t clflushLineSize;  // leaf 1 EBX bits 8-15
  uint32_t features1Ebx;     // leaf 1
  uint32_t extFeaturesEcx2;  // leaf 0x80000001 ECX again
  uint32_t extFeaturesEdx;   // leaf 0x80000001
  uint32_t addressSizes;     // leaf 0x80000008 EAX
  uint32_t leaf80000008Ecx;
  uint32_t features7Ebx;  // leaf 7 sub-leaf 0
  uint32_t coreCount;
  uint32_t logicalCount;
  uint8_t filled;
};

// The module's record, and the getter that fills it on its first call.
extern ProcessorInfo processorInfo;
extern uint8_t processorInfoIsBegun;
const ProcessorInfo& GetProcessorInfo(const System& system);

constexpr uint8_t Bit(uint32_t word, int index) { return word >> index & 1; }

}  // namespace vantrix
