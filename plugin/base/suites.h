// The ten suites as the plug-in holds them, and how start-up finds them.
#pragma once

#include "plugin/base/interface.h"

namespace vantrix {

// What the plug-in holds of a suite. Start-up writes it; from then on it is only read. A kernel
// that hands a case back to the host calls the saved entry. A kernel that uses another routine of
// the host calls the live entry, whatever is installed there.
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

// Returns the first record with this code and version. If the block has none, the last record of
// the core suite is asked for one by a capability query. Returns null if there is no core suite,
// its count is below 5, it refuses, or the record that it gives has another version.
const SuiteRecord* FindSuite(const SuiteParameterBlock* block, uint32_t code, int16_t version);

// Finds all ten suites and saves their entries. Returns 0, or -1 at the first suite that is missing
// or too short; the suites before it stay acquired.
//
// When a suite is acquired again, its table may hold our own routines, for which isOwn returns
// true. They are not saved, so that a call that is handed on still reaches the host's routine.
int16_t AcquireSuites(const SuiteParameterBlock* block, bool (*isOwn)(Routine));

}  // namespace vantrix
