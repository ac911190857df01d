// Routines written without regard to registers, for the compiler to vectorise. The kernels are
// measured against them.
#pragma once

#include <span>

#include "plugin/base/interface.h"

namespace vantrix::host {

// Returns the ordinary routine for a slot: the host's own, or a more direct one that does the same
// if the host's, written only to be read, would be a poor opponent. It is compiled by the compiler
// of this program, with -O3. Null if the host has no routine.
using FindRoutine = Routine(SuiteIndex suite, uint16_t slot);
extern "C" FindRoutine FindVectorised;

// The routines that replace the host's, in one list per suite.
struct Ordinary {
  uint16_t slot;
  Routine routine;
};
template <class Signature>
Ordinary Use(uint16_t slot, Signature* routine) {
  return {slot, reinterpret_cast<Routine>(routine)};
}
std::span<const Ordinary> OrdinaryBlends();
std::span<const Ordinary> OrdinaryConversions();
std::span<const Ordinary> OrdinaryFilters();
std::span<const Ordinary> OrdinaryPaths();
std::span<const Ordinary> OrdinaryResampling();
std::span<const Ordinary> OrdinarySelection();

}  // namespace vantrix::host
