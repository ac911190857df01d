#include "suites/path/debugging.h"

#include "plugin/base/builds.h"
#include "plugin/base/suites.h"
#include "suites/path/debug.h"
#include "suites/path/fill_array.h"

namespace vantrix {
namespace {

constexpr int kFillArraySlot = 24;

struct Answer {
  uint64_t value;
  bool isRecognized;
};

// This query is signed with the host's signature; the query
// for a suite is signed with the plug-in's kind.
Answer Ask(uint32_t selector) {
  uint64_t value = 0;
  const auto query = Call<HostCapabilityQuery>(coreSuite.live[kHostCapabilityQuery]);
  const bool isRecognized = static_cast<uint8_t>(query(kHostSignature, selector, &value));
  return {value, isRecognized};
}

}  // namespace

// A host may write an answer and still return that it does not know the question. That is reported,
// and the answer is used.
void AskForPathDebugging() {
  const Answer enabled = Ask(Code("pdbg"));
  const Answer guard = Ask(Code("pdgv"));
  PathDebugEnabled = enabled.value != 0;
  PathDebugGuardValue = PathDebugEnabled ? static_cast<uint32_t>(guard.value) : 0;
  if (!PathDebugEnabled) return;

  if (!enabled.isRecognized)
    ReportPath("Path debug enabled gestalt, 'pdbg' not recognized", kPathSourceFile, 286,
               kDebugCheck);
  if (!guard.isRecognized)
    ReportPath("Path debug guard value gestalt, 'pdgv' not recognized", kPathSourceFile, 287,
               kDebugCheck);
  // Inclusive: all ones in 32 bits is reported although it fits. An answer whose top bit is set
  // counts as negative and is not reported.
  if (static_cast<int64_t>(guard.value) >= 4294967295)
    ReportPath("Path debug guard value is bigger than expected", kPathSourceFile, 288, kDebugCheck);
}

void InstallPathChecks() {
  if (PathDebugEnabled) pathSuite.live[kFillArraySlot] = Entry<ApplyFillArrayOperationChecked>();
}

}  // namespace vantrix
