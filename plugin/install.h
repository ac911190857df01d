// The one loop that installs the kernels.
//
// A suite's slot table says which slots are ours, its kernel list which builds of each
// routine exist. A slot whose gate is open gets the widest build that the processor runs. A
// slot without a kernel is passed through.
#pragma once

#include <iterator>
#include <utility>

#include "plugin/builds.h"
#include "plugin/pass_through.h"
#include "plugin/processor.h"
#include "plugin/slots.h"
#include "plugin/suites.h"

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

// Kernels::In<Form>() is what a suite has in a form. Null where no form that runs has a
// build.
template <class Kernels>
RoutineGetter WidestBuild(uint16_t slot, InstructionSets has) {
  RoutineGetter widest = nullptr;
  Forms::ForEach([&]<class Form>() {
    if (!Form::RunsOn(has)) return;
    if (const RoutineGetter found = FindBuild(Kernels::template In<Form>(), slot)) widest = found;
  });
  return widest;
}

// Writes the routines of all slots whose gates are open, in the table's order,
// so that of two lines for one slot the later wins.
template <auto& kSuite, auto& kSlots, class Kernels>
void Install(const ProcessorFeatures& has, InstructionSets runs) {
  const auto write = [&](const Slot& slot, RoutineGetter passThrough) {
    if (!IsOpen(slot.gate, has)) return;
    const RoutineGetter own =
        slot.IsServed() ? WidestBuild<Kernels>(slot.index, runs) : passThrough;
    kSuite.live[slot.index] = (own ? own : passThrough)();
  };
  [&]<size_t... kLine>(std::index_sequence<kLine...>) {
    (write(kSlots[kLine], Entry<PassThrough<kSuite, kSlots[kLine].index>>), ...);
  }(std::make_index_sequence<std::size(kSlots)>{});
}

}  // namespace vantrix
