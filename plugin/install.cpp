#include "plugin/install.h"

#include <utility>

#include "plugin/base/instruction_sets.h"
#include "plugin/base/pass_through.h"
#include "plugin/core.h"
#include "suites/path/debugging.h"
#include "suites/path/fill_array.h"
#include "suites/served.h"

namespace vantrix {
namespace {

// visit(slot, its pass-through) for each line of a suite's slot table, in order.
template <class Suite, class Visit>
void ForEachSlot(Visit visit) {
  [&]<size_t... kLine>(std::index_sequence<kLine...>) {
    (visit(Suite::kSlots[kLine], Entry<PassThrough<Suite::kSuite, Suite::kSlots[kLine].index>>),
     ...);
  }(std::make_index_sequence<std::size(Suite::kSlots)>{});
}

// Of two lines for one slot the later wins.
template <class Suite>
int32_t InstallSuite(const SuiteParameterBlock*) {
  ForEachSlot<Suite>([](const Slot& slot, RoutineGetter passThrough) {
    if (!IsOpen(slot.gate, processorFeatures)) return;
    const RoutineGetter own =
        slot.IsServed() ? WidestBuild<typename Suite::Kernels>(slot.index, instructionSets)
                        : nullptr;
    Suite::kSuite.live[slot.index] = (own ? own : passThrough)();
  });
  return 1;
}

}  // namespace

int32_t InstallPathRoutines(const SuiteParameterBlock* block) {
  AskForPathDebugging();
  const int32_t outcome = InstallSuite<ServedPath>(block);
  InstallPathChecks();
  return outcome;
}

Installer* const kInstallers[kSuiteCount] = {
    InstallCoreRoutines,       InstallSuite<ServedBlend>,    InstallSuite<ServedConvert>,
    InstallDisplayRoutines,    InstallSuite<ServedFilter>,   InstallSuite<ServedMemory>,
    InstallSuite<ServedPaint>, InstallSuite<ServedResample>, InstallSuite<ServedSelect>,
    InstallPathRoutines,
};

bool IsOwn(Routine routine) {
  bool isOwn =
      routine == Entry<NoiseBufferHook>() || routine == Entry<ApplyFillArrayOperationChecked>();
  ForEachBuild([&]<class>(SuiteIndex, const Build& build) { isOwn |= build.routine() == routine; });
  ForEachServedSuite([&]<class Suite>() {
    ForEachSlot<Suite>(
        [&](const Slot&, RoutineGetter passThrough) { isOwn |= passThrough() == routine; });
  });
  return isOwn;
}

}  // namespace vantrix
