#include "tests/fake_system.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace vantrix {
namespace {

using Failure = FakeSystem::CountFailure;
FakeSystem* fake;

CpuidWords Cpuid(uint32_t leaf, uint32_t subLeaf) {
  ++fake->cpuidCalls;
  const auto found = fake->leaves.find(leaf);
  return found == fake->leaves.end() || subLeaf != 0 ? CpuidWords{} : found->second;
}

bool LogicalProcessorInformation(ProcessorRelation* records, uint32_t* bytes) {
  const auto wanted = static_cast<uint32_t>(fake->relations.size() * sizeof(ProcessorRelation));
  if (!records) {
    *bytes = wanted;
    return fake->countFailure == Failure::kFirstSucceeds;
  }
  if (fake->countFailure == Failure::kSecondFails) return false;
  std::copy_n(fake->relations.data(), std::min(*bytes, wanted) / sizeof *records, records);
  return true;
}

void* Allocate(size_t bytes) {
  if (fake->countFailure == Failure::kNoMemory) return nullptr;
  ++fake->allocations;
  return std::malloc(bytes);
}

const System kTable = {
    .cpuid = Cpuid,
    .enabledState =
        [] {
          ++fake->enabledStateReads;
          return fake->enabledState;
        },
    .executesSSE = [] { return fake->executesSSE; },
    .logicalProcessorInformation = LogicalProcessorInformation,
    .lastError =
        [] { return fake->countFailure == Failure::kOtherError ? 5u : kErrorInsufficientBuffer; },
    .processorCount = [] { return fake->processorCount; },
    .allocate = Allocate,
    .release =
        [](void* memory) {
          ++fake->releases;
          std::free(memory);
        },
    .openRegistryKey = [](const char* path) -> RegistryKey {
      fake->openedPath = path;
      if (!fake->hasKey) return nullptr;
      ++fake->opened;
      return fake;
    },
    .queryRegistryWord =
        [](RegistryKey, const char* name, uint32_t* value) {
          fake->queriedName = name;
          if (fake->hasValue) *value = fake->megahertz;
          return fake->hasValue;
        },
    .closeRegistryKey = [](RegistryKey) { ++fake->closed; },
};

}  // namespace

const System& FakeSystem::Table() {
  fake = this;
  return kTable;
}

void FakeSystem::SetVendor(const char (&text)[13]) {
  uint32_t words[3];
  std::memcpy(words, text, sizeof words);
  CpuidWords& leaf = leaves[0];
  leaf.ebx = words[0], leaf.edx = words[1], leaf.ecx = words[2];
}

void FakeSystem::SetFeatures(uint32_t edx, uint32_t ecx) {
  leaves[0].eax = std::max(leaves[0].eax, 1u);
  leaves[1].edx = edx;
  leaves[1].ecx = ecx;
}

void FakeSystem::AddCores(int cores, uint64_t mask) {
  for (int i = 0; i < cores; ++i)
    relations.push_back(
        {.processorMask = mask, .relationship = kRelationProcessorCore, .unused = {}});
}

}  // namespace vantrix
