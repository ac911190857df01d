#include "plugin/base/processor.h"

#include <cstring>

namespace vantrix {

ProcessorFeatures processorFeatures;

ProcessorFeatures DetectFeatures(const System& system) {
  return {
      .hasMMX = HasMMX(system),
      .osSupportsSSE = OsSupportsSSE(system),
      .hasSSE = HasSSE(system),
      .hasSSE2 = HasSSE2(system),
      .hasSSE3 = HasSSE3(system),
      .hasSSSE3 = HasSSSE3(system),
      .hasSSE41 = HasSSE41(system),
      .isIntelHyperThreaded = IsIntelHyperThreaded(system),
  };
}

uint8_t HasMMX(const System& system) { return Bit(GetProcessorInfo(system).features1Edx, 23); }
uint8_t OsSupportsSSE(const System& system) { return system.executesSSE(); }
uint8_t HasSSE(const System& system) { return Bit(GetProcessorInfo(system).features1Edx, 25); }
uint8_t HasSSE2(const System& system) { return Bit(GetProcessorInfo(system).features1Edx, 26); }
uint8_t HasSSE3(const System& system) { return Bit(GetProcessorInfo(system).features1Ecx, 0); }
uint8_t HasSSSE3(const System& system) { return Bit(GetProcessorInfo(system).features1Ecx, 9); }
uint8_t HasSSE41(const System& system) { return Bit(GetProcessorInfo(system).features1Ecx, 19); }

uint8_t IsIntelHyperThreaded(const System& system) {
  const ProcessorInfo& info = GetProcessorInfo(system);
  return IsGenuineIntel(system) == 1 && info.coreCount < info.logicalCount;
}

int32_t IsGenuineIntel(const System& system) {
  const CpuidWords leaf = system.cpuid(0, 0);
  const uint32_t words[3] = {leaf.ebx, leaf.edx, leaf.ecx};
  if (std::memcmp(words, "GenuineIntel", sizeof words) == 0) return 1;
  if (std::memcmp(words, "AuthenticAMD", sizeof words) == 0) return 2;
  return 0;
}

}  // namespace vantrix
