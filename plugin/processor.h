// What is known of the processor, and the probes that start-up asks.
#pragma once

#include "plugin/system.h"

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

// The flags that gate the installers, each 0 or 1, in the order of the probes.
struct ProcessorFeatures {
  uint32_t hasMMX;
  uint32_t osSupportsSSE;
  uint32_t hasSSE;
  uint32_t hasSSE2;
  uint32_t hasSSE3;
  uint32_t hasSSSE3;
  uint32_t hasSSE41;
  uint32_t isIntelHyperThreaded;
};

// Written by start-up, read-only afterwards.
extern ProcessorFeatures processorFeatures;

// Runs the eight probes and returns their results.
ProcessorFeatures DetectFeatures(const System& system);

// The module's record and the getter that fills it on its first call.
extern ProcessorInfo processorInfo;
extern uint8_t processorInfoIsBegun;
const ProcessorInfo& GetProcessorInfo(const System& system);

// The probes. Each returns 0 or 1.
uint8_t HasMMX(const System& system);
uint8_t OsSupportsSSE(const System& system);
uint8_t HasSSE(const System& system);
uint8_t HasSSE2(const System& system);
uint8_t HasSSE3(const System& system);
uint8_t HasSSSE3(const System& system);
uint8_t HasSSE41(const System& system);
uint8_t IsIntelHyperThreaded(const System& system);

// 1 for "GenuineIntel", 2 for "AuthenticAMD", 0 for any other vendor.
int32_t IsGenuineIntel(const System& system);

// Probes that start-up does not call.
uint8_t HasSSE42(const System& system);
uint8_t HasAVX(const System& system);
uint8_t HasAVX2(const System& system);
uint8_t HasAVX2OnLateType(const System& system);  // never: the type has two bits, not six values
int32_t GetVendorCode(const System& system);      // 8 Intel, 9 AMD, 7 any other
uint32_t GetCoreCount(const System& system);
uint32_t GetLogicalCount(const System& system);
uint32_t GetFeatures1Ebx(const System& system);
uint8_t HasAltiVec();
uint8_t HasNEON();
uint8_t HasVSX();
uint32_t GetClockMegahertz(const System& system);  // 0 where the system does not say

}  // namespace vantrix
