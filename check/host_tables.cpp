#include "check/host_tables.h"

#include <algorithm>
#include <array>

#include "plugin/base/suites.h"

namespace vantrix::check {
namespace {

constexpr size_t kMostEntries =
    std::ranges::max(kSuiteFormats, {}, &SuiteFormat::savedEntries).savedEntries;

struct Block {
  SuiteParameterBlock head{0, kSuiteCount};
  SuiteRecord records[kSuiteCount];
  Routine routines[kSuiteCount][kMostEntries];
};
// Never freed, as a thread that could not be stopped may reach it.
Block copies;

int64_t PollNobody() { return 0; }
void TellNobody(const char*, const char*, int32_t, int32_t) {}

}  // namespace

HostTables::HostTables(const SuiteParameterBlock* block) {
  for (int suite = 0; suite < kSuiteCount; ++suite)
    records_[suite] = FindSuite(block, kSuiteFormats[suite].code, kSuiteFormats[suite].version);
}

bool HostTables::DebugsPaths() const {
  uint64_t answer = 0;
  Call<HostCapabilityQuery>(At(kCore, kHostCapabilityQuery))(kHostSignature, Code("pdbg"), &answer);
  return answer != 0;
}

void HostTables::Say(const std::string& message) const {
  Call<HostAssert>(At(kCore, kHostAssert))(message.c_str(), "VantrixCheck", __LINE__, 0);
}

void GiveKernels(const HostTables& tables) {
  for (int i = 0; i < kSuiteCount; ++i) {
    const auto suite = static_cast<SuiteIndex>(i);
    const SuiteFormat& format = kSuiteFormats[i];
    std::copy_n(tables.Record(suite).routines, format.savedEntries, copies.routines[i]);
    copies.records[i] = {format.code, format.version, static_cast<int16_t>(format.savedEntries),
                         copies.routines[i]};
  }
  copies.routines[kCore][kHostPoll] = reinterpret_cast<Routine>(PollNobody);
  copies.routines[kCore][kHostAssert] = reinterpret_cast<Routine>(TellNobody);
  AcquireSuites(&copies.head, [](Routine) { return false; });
}

}  // namespace vantrix::check
