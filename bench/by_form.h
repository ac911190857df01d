// What kernels are compared with in every form: units that are compiled once for each form with
// registers, with the form's instructions and with VX_FORM naming it.
//
// They hold no constructors, or the benchmarks would not start on an older processor. A plain
// unit (by_form.cpp) registers what they list, if the form runs.
#pragma once

#include <initializer_list>
#include <span>

#include "common/forms.h"
#include "plugin/base/builds.h"

namespace vantrix::bench {

// A routine for some slots of a suite.
struct SlotsRoutine {
  SuiteIndex suite;
  std::initializer_list<uint16_t> slots;
  RoutineGetter routine;
  const char* onlySetting = nullptr;  // null for all
};

// Returns the cheapest loops that read and write the planes of slots, for those that have one.
template <class Form>
std::span<const SlotsRoutine> Limits();

// Returns the masked normal blend written by hand.
template <class Form>
RoutineGetter MaskedBlendByHand();

// Adds registers without touching memory: kAddsInRound times `rounds`.
inline constexpr int kAddsInRound = 8;
template <class Form>
void AddRegisters(int rounds);

}  // namespace vantrix::bench
