// Routines as one would write them without a thought of registers, for the compiler to
// make vectors of: what the kernels are measured against.
#pragma once

#include <span>

#include "plugin/base/interface.h"

namespace vantrix::host {

// The ordinary routine for a slot: the host's own, or one that does the same with less
// ceremony where the host's, written for the eye alone, would make a poor opponent.
// Compiled by what compiles this program, with -O3. Null where the host has no routine.
using FindRoutine = Routine(SuiteIndex suite, uint16_t slot);
extern "C" FindRoutine FindVectorised;

// Those in the place of the host's, in one list a suite.
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
