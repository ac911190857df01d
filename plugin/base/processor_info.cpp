#include "plugin/base/processor_info.h"

#include <bit>

namespace vantrix {

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

// If the system does not report cores, its count of processors is taken for both.
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

}  // namespace vantrix
