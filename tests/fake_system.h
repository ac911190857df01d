// A processor and a system that a test makes up.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "plugin/base/system.h"

namespace vantrix {

struct FakeSystem {
  // Leaves by number, sub-leaf 0 of each. Missing leaves and other sub-leaves read as zeros.
  std::map<uint32_t, CpuidWords> leaves;
  bool executesSSE = true;
  uint64_t enabledState = 0;

  // What the call that counts processors returns, and where it fails.
  std::vector<ProcessorRelation> relations;
  enum class CountFailure { kNone, kFirstSucceeds, kOtherError, kNoMemory, kSecondFails };
  CountFailure countFailure = CountFailure::kNone;
  uint32_t processorCount = 4;

  // The registry: a key that opens or not, a value that is there or not.
  bool hasKey = true, hasValue = true;
  uint32_t megahertz = 2600;

  int cpuidCalls = 0, enabledStateReads = 0, allocations = 0, releases = 0, opened = 0, closed = 0;
  std::string openedPath, queriedName;

  // Returns the table, which speaks for the FakeSystem that was asked for it last.
  const System& Table();

  void SetVendor(const char (&text)[13]);
  void SetFeatures(uint32_t edx, uint32_t ecx);
  void AddCores(int cores, uint64_t mask);
};

inline constexpr uint32_t kMMX = 1u << 23, kSSE = 1u << 25, kSSE2 = 1u << 26;    // EDX
inline constexpr uint32_t kSSE3 = 1u << 0, kSSSE3 = 1u << 9, kSSE41 = 1u << 19;  // ECX

}  // namespace vantrix
