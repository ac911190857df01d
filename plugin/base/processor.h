// What the processor can do: the probes that start-up runs, and their results.
#pragma once

#include "plugin/base/processor_info.h"

namespace vantrix {

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

}  // namespace vantrix
