#include "plugin/base/suites.h"

namespace vantrix {

SavedSuite<kBlend> blendSuite;
SavedSuite<kConvert> convertSuite;
SavedSuite<kCore> coreSuite;
SavedSuite<kDisplay> displaySuite;
SavedSuite<kFilter> filterSuite;
SavedSuite<kMemory> memorySuite;
SavedSuite<kPaint> paintSuite;
SavedSuite<kResample> resampleSuite;
SavedSuite<kSelect> selectSuite;
SavedSuite<kPath> pathSuite;

namespace {

// The query is entry 5, yet a count of 5 is enough.
constexpr uint32_t kMinimumToQuery = 5;

// The signed count is compared as an unsigned number, so every negative count passes.
bool HasAtLeast(const SuiteRecord& record, uint32_t minimum) {
  return static_cast<uint32_t>(int32_t{record.suiteCount}) >= minimum;
}

struct Holder {
  Routine** live;
  Routine* saved;
};
template <size_t kEntries>
constexpr Holder HolderOf(Suite<kEntries>& suite) {
  return {&suite.live, suite.saved};
}
constexpr Holder kHolders[kSuiteCount] = {
    HolderOf(blendSuite),  HolderOf(convertSuite), HolderOf(coreSuite),  HolderOf(displaySuite),
    HolderOf(filterSuite), HolderOf(memorySuite),  HolderOf(paintSuite), HolderOf(resampleSuite),
    HolderOf(selectSuite), HolderOf(pathSuite),
};

}  // namespace

const SuiteRecord* FindSuite(const SuiteParameterBlock* block, uint32_t code, int16_t version) {
  constexpr SuiteFormat kCoreFormat = kSuiteFormats[kCore];
  const SuiteRecord* records = RecordsOf(block);
  const SuiteRecord* core = nullptr;
  for (int32_t i = 0; i < block->recordCount; ++i) {
    const SuiteRecord& record = records[i];
    if (record.suiteCode == code && record.suiteVersion == version) return &record;
    if (record.suiteCode == kCoreFormat.code && record.suiteVersion == kCoreFormat.version)
      core = &record;
  }
  if (!core || !HasAtLeast(*core, kMinimumToQuery)) return nullptr;

  // The plug-in's kind signs this query; the path suite's own queries are signed
  // with the host's signature.
  const SuiteRecord* found = nullptr;
  const auto query = Call<HostCapabilityQuery>(core->routines[kHostCapabilityQuery]);
  if (!static_cast<uint8_t>(query(kPluginKind, code, &found)) || !found) return nullptr;
  return found->suiteVersion == version ? found : nullptr;
}

int16_t AcquireSuites(const SuiteParameterBlock* block, bool (*isOwn)(Routine)) {
  for (int i = 0; i < kSuiteCount; ++i) {
    const SuiteFormat& format = kSuiteFormats[i];
    const SuiteRecord* record = FindSuite(block, format.code, format.version);
    if (!record || !HasAtLeast(*record, format.minimumCount)) return kSuiteMissing;
    const Holder& holder = kHolders[i];
    // Before the first start-up no table has our routines.
    const bool isFirst = *holder.live == nullptr;
    for (uint32_t slot = 0; slot < format.savedEntries; ++slot)
      if (isFirst || !isOwn(record->routines[slot])) holder.saved[slot] = record->routines[slot];
    *holder.live = record->routines;
  }
  return 0;
}

}  // namespace vantrix
