// The builds of the kernels, and the one loop that installs them.
//
// A suite's slot table says which slots are ours; its kernel list says which
// builds of each routine exist. A slot whose gate is open gets the widest build
// that the processor runs. A slot without a kernel is passed through.
#pragma once

#include <iterator>
#include <span>
#include <utility>

#include "plugin/pass_through.h"
#include "plugin/processor.h"
#include "plugin/slots.h"
#include "plugin/suites.h"

namespace vantrix {

// The builds of one routine, narrowest first: one sample at a time, then by the
// instruction set that they need. All give the same results.
using RoutineGetter = Routine (*)();
struct Kernel {
  uint16_t slot;
  RoutineGetter scalar = nullptr;
  RoutineGetter sse2 = nullptr;
  RoutineGetter ssse3 = nullptr;
  RoutineGetter sse41 = nullptr;
};

// A getter, because the address of a function seen as a plain Routine is not a
// constant expression.
template <auto& kFunction>
Routine Entry() {
  return reinterpret_cast<Routine>(&kFunction);
}

constexpr bool IsOpen(Gate gate, const ProcessorFeatures& has) {
  switch (gate) {
    case Gate::kAlways:
      return true;
    case Gate::kSSE:
      return has.hasSSE;
    case Gate::kSSE2:
      return has.hasSSE2;
    case Gate::kSSE41:
      return has.hasSSE41;
  }
  return false;
}

constexpr RoutineGetter WidestBuild(const Kernel& kernel, const ProcessorFeatures& has) {
  if (kernel.sse41 && has.hasSSE41) return kernel.sse41;
  if (kernel.ssse3 && has.hasSSSE3) return kernel.ssse3;
  if (kernel.sse2 && has.hasSSE2) return kernel.sse2;
  return kernel.scalar;
}

constexpr const Kernel* FindKernel(std::span<const Kernel> kernels, uint16_t slot) {
  for (const Kernel& kernel : kernels)
    if (kernel.slot == slot) return &kernel;
  return nullptr;
}

// Whether exactly the slots that state a rule have a kernel.
constexpr bool ServesWhatItSays(std::span<const Slot> slots, std::span<const Kernel> kernels) {
  for (const Slot& slot : slots)
    if (slot.IsServed() != (FindKernel(kernels, slot.index) != nullptr)) return false;
  return true;
}

// Writes the routines of all slots whose gates are open, in the table's order,
// so that of two lines for one slot the later wins.
template <auto& kSuite, auto& kSlots, auto& kKernels>
void Install(const ProcessorFeatures& has) {
  static_assert(ServesWhatItSays(kSlots, kKernels));
  const auto write = [&](const Slot& slot, const Kernel* kernel, RoutineGetter host) {
    if (!IsOpen(slot.gate, has)) return;
    const RoutineGetter own = kernel ? WidestBuild(*kernel, has) : nullptr;
    kSuite.live[slot.index] = own ? own() : host();
  };
  [&]<size_t... kLine>(std::index_sequence<kLine...>) {
    (write(kSlots[kLine], FindKernel(kKernels, kSlots[kLine].index),
           Entry<PassThrough<kSuite, kSlots[kLine].index>>),
     ...);
  }(std::make_index_sequence<std::size(kSlots)>{});
}

}  // namespace vantrix
