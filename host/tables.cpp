#include "host/tables.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "host/services.h"

namespace vantrix::host {
namespace {

template <int kSuite, int kSlot>
void HasNoRoutine() {
  std::fprintf(stderr,
               "vantrix-host: suite %s slot %d was called, but this host has no routine for it\n",
               Catalog()[kSuite].name, kSlot);
  std::exit(3);
}

template <int kSuite, size_t... kSlot>
std::vector<Routine> NoRoutines(std::index_sequence<kSlot...>) {
  return {HasNoRoutine<kSuite, int{kSlot}>...};
}

template <size_t... kSuite>
std::array<std::vector<Routine>, kSuiteCount> AllWithoutRoutines(std::index_sequence<kSuite...>) {
  return {
      NoRoutines<int{kSuite}>(std::make_index_sequence<kSuiteFormats[kSuite].savedEntries>{})...};
}

}  // namespace

Tables::Tables() : defaults_(AllWithoutRoutines(std::make_index_sequence<kSuiteCount>{})) {
  for (const SuiteEntry& suite : Catalog())
    for (const Reference& reference : suite.references)
      defaults_[suite.index][reference.slot] = reference.routine;
  auto& core = defaults_[kCore];
  core[kHostPoll] = reinterpret_cast<Routine>(Poll);
  core[kNoiseBuffer] = reinterpret_cast<Routine>(TakeNoiseBuffer);
  core[kHostCapabilityQuery] = reinterpret_cast<Routine>(QueryCapability);
  core[kHostAssert] = reinterpret_cast<Routine>(Assert);
  live_ = defaults_;

  block_.head = {0, kSuiteCount};
  for (int i = 0; i < kSuiteCount; ++i) {
    const SuiteFormat& format = kSuiteFormats[i];
    block_.records[i] = {format.code, format.version, static_cast<int16_t>(format.savedEntries),
                         live_[i].data()};
  }
}

}  // namespace vantrix::host
