// The ten suites as the plug-in holds them, and how start-up finds them.
#pragma once

#include "plugin/interface.h"

namespace vantrix {

// Written during start-up, read-only afterwards. A kernel that hands a case back
// calls the saved entry; one that uses another routine of the host's, whatever
// is installed there, calls the live one.
template <size_t kEntries>
struct Suite {
  Routine* live;            // the host's table, null until acquired
  Routine saved[kEntries];  // its entries as they were on acquisition
};

template <SuiteIndex kSuite>
using SavedSuite = Suite<kSuiteFormats[kSuite].savedEntries>;

// Hidden, so that a pass-through may jump through them relative to itself.
#pragma GCC visibility push(hidden)
extern SavedSuite<kBlend> blendSuite;
extern SavedSuite<kConvert> convertSuite;
extern SavedSuite<kCore> coreSuite;
extern SavedSuite<kDisplay> displaySuite;
extern SavedSuite<kFilter> filterSuite;
extern SavedSuite<kMemory> memorySuite;
extern SavedSuite<kPaint> paintSuite;
extern SavedSuite<kResample> resampleSuite;
extern SavedSuite<kSelect> selectSuite;
extern SavedSuite<kPath> pathSuite;
#pragma GCC visibility pop

// The routine at an entry, by its signature: Call<HostPoll>(coreSuite.live[kHostPoll]).
template <class Signature>
Signature* Call(Routine routine) {
  return reinterpret_cast<Signature*>(routine);
}

// The first record with this code and version. Failing that, the last record of
// the core suite answers a capability query with a record; null when there is no
// such record, its count is below 5, it refuses, or its answer has another version.
const SuiteRecord* FindSuite(const SuiteParameterBlock* block, uint32_t code, int16_t version);

// Finds all ten and saves their entries. 0, or -1 at the first that is missing or
// too short; those before it stay acquired.
//
// When a suite is acquired once more, its table may hold our own routines, of which isOwn tells.
// What was saved stays in their places, so that a call that is handed on reaches the host.
int16_t AcquireSuites(const SuiteParameterBlock* block, bool (*isOwn)(Routine));

}  // namespace vantrix
