// The installers, and which routine they write into a slot.
//
// A suite's slot table says which slots are ours, its kernel list which builds each slot has. An
// installer writes every slot whose gate is open: the widest build that the processor runs, or a
// pass-through if the slot has no kernel.
#pragma once

#include "plugin/base/builds.h"
#include "plugin/base/processor.h"
#include "plugin/base/slots.h"

namespace vantrix {

constexpr bool IsOpen(Gate gate, const ProcessorFeatures& has) {
  switch (gate) {
    case Gate::kAlways:
      return true;
    case Gate::kSSE:
      return has.hasSSE;
    case Gate::kSSE2:
      return has.hasSSE2;
    case Gate::kSSE2OrSSSE3:
      return has.hasSSE2 || has.hasSSSE3;
    case Gate::kSSE41:
      return has.hasSSE41;
  }
  return false;
}

// Kernels::In<Form>() is what a suite has in a form. Returns
// null if no form that runs has a build for the slot.
template <class Kernels>
RoutineGetter WidestBuild(uint16_t slot, InstructionSets has) {
  RoutineGetter widest = nullptr;
  Forms::ForEach([&]<class Form>() {
    if (!Form::RunsOn(has)) return;
    if (const RoutineGetter found = FindBuild(Kernels::template In<Form>(), slot)) widest = found;
  });
  return widest;
}

// Writes the slots of one acquired suite and returns 1.
using Installer = int32_t(const SuiteParameterBlock* block);

// One a suite, in the order in which start-up runs them.
extern Installer* const kInstallers[kSuiteCount];

// The last of them. It first asks the host whether path debugging is on and with which guard value,
// and reports answers that contradict one another. Installs in any case.
Installer InstallPathRoutines;

// Returns whether an installer writes this routine: a build in any form, a checked one, or a
// routine that hands its call on.
bool IsOwn(Routine routine);

}  // namespace vantrix
