#include "plugin/processor.h"

#include <bit>
#include <cstring>

namespace vantrix {

ProcessorFeatures processorFeatures;
ProcessorInfo processorInfo;
uint8_t processorInfoIsBegun;

namespace {

constexpr uint32_t kExtendedLeaf = 0x80000000;

constexpr uint32_t Bits(uint32_t word, int first, int last) {
  return word >> first & ((2u << (last - first)) - 1);
}

struct Counts {
  uint32_t cores, logical;
};

// The system's count stands for both where it does not tell cores apart.
Counts CountProcessors(const System& system) {
  const auto countAll = [&] {
    const uint32_t count = system.processorCount();
    return Counts{count, count};
  };
  uint32_t bytes = 0;
  if (system.logicalProcessorInformation(nullptr, &bytes)) return countAll();
  if (system.lastError() != kErrorInsufficientBuffer) return countAll();
  const auto records = static_cast<ProcessorRelation*>(system.allocate(bytes));
  if (!records) return countAll();

  Counts counts{};
  if (system.logicalProcessorInformation(records, &bytes)) {
    for (uint32_t i = 0; i < bytes / sizeof *records; ++i) {
      if (records[i].relationship != kRelationProcessorCore) continue;
      counts.cores += 1;
      counts.logical += static_cast<uint32_t>(std::popcount(records[i].processorMask));
    }
  } else {
    counts = countAll();
  }
  system.release(records);
  return counts;
}

void ReadLeaves(const System& system, ProcessorInfo& info) {
  const uint32_t highestLeaf = system.cpuid(0, 0).eax;
  if (highestLeaf == 0) return;

  const CpuidWords leaf1 = system.cpuid(1, 0);
  info.processorType = Bits(leaf1.eax, 12, 13);
  info.family = Bits(leaf1.eax, 8, 11);
  info.model = Bits(leaf1.eax, 4, 7);
  info.extendedFamily = Bits(leaf1.eax, 20, 27);
  info.extendedModel = Bits(leaf1.eax, 16, 19);
  info.stepping = Bits(leaf1.eax, 0, 3);
  info.features1Edx = leaf1.edx;
  info.features1Ecx = leaf1.ecx;
  info.brandIndex = Bits(leaf1.ebx, 0, 3);
  info.clflushLineSize = Bits(leaf1.ebx, 8, 15);
  info.features1Ebx = leaf1.ebx;

  const uint32_t highestExtended = system.cpuid(kExtendedLeaf, 0).eax;
  if (highestExtended >= kExtendedLeaf + 1) {
    const CpuidWords leaf = system.cpuid(kExtendedLeaf + 1, 0);
    info.extFeaturesEcx = info.extFeaturesEcx2 = leaf.ecx;
    info.extFeaturesEdx = leaf.edx;
  }
  if (highestExtended >= kExtendedLeaf + 8) {
    const CpuidWords leaf = system.cpuid(kExtendedLeaf + 8, 0);
    info.addressSizes = leaf.eax;
    info.leaf80000008Ecx = leaf.ecx;
  }
  if (highestLeaf >= 7) info.features7Ebx = system.cpuid(7, 0).ebx;

  const Counts counts = CountProcessors(system);
  info.coreCount = counts.cores;
  info.logicalCount = counts.logical;
}

uint8_t Bit(uint32_t word, int index) { return word >> index & 1; }

}  // namespace

const ProcessorInfo& GetProcessorInfo(const System& system) {
  if (!processorInfo.filled) {
    processorInfo = {};
    processorInfoIsBegun = 1;
    ReadLeaves(system, processorInfo);
    processorInfo.filled = 1;
  }
  return processorInfo;
}

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

uint8_t HasSSE42(const System& system) { return Bit(GetProcessorInfo(system).features1Ecx, 20); }

// The instructions and the system's saving of the wider registers.
uint8_t HasAVX(const System& system) {
  const uint32_t ecx = GetProcessorInfo(system).features1Ecx;
  return Bit(ecx, 27) && Bit(ecx, 28);
}

uint8_t HasAVX2(const System& system) {
  return HasAVX(system) && Bit(GetProcessorInfo(system).features7Ebx, 5);
}

uint8_t HasAVX2OnLateType(const System& system) {
  return GetProcessorInfo(system).processorType >= 6 && HasAVX2(system);
}

int32_t GetVendorCode(const System& system) {
  switch (IsGenuineIntel(system)) {
    case 1:
      return 8;
    case 2:
      return 9;
    default:
      return 7;
  }
}

uint32_t GetCoreCount(const System& system) { return GetProcessorInfo(system).coreCount; }
uint32_t GetLogicalCount(const System& system) { return GetProcessorInfo(system).logicalCount; }
uint32_t GetFeatures1Ebx(const System& system) { return GetProcessorInfo(system).features1Ebx; }

uint8_t HasAltiVec() { return 0; }
uint8_t HasNEON() { return 0; }
uint8_t HasVSX() { return 0; }

// Closes the key only when the value cannot be read. After a successful query it
// stays open: known, and kept as it is; nothing calls this at start-up.
uint32_t GetClockMegahertz(const System& system) {
  const RegistryKey key =
      system.openRegistryKey("Hardware\\Description\\System\\CentralProcessor\\0");
  if (!key) return 0;
  uint32_t megahertz = 0;
  if (!system.queryRegistryWord(key, "~MHz", &megahertz)) {
    system.closeRegistryKey(key);
    return 0;
  }
  return megahertz;
}

}  // namespace vantrix
