// What the benchmarks measure against in every form: units that are compiled once for each
// form of registers, with its instructions and VX_FORM naming it.
//
// They hold no constructors, or the benchmarks would not start on an older processor. A plain
// unit registers what they list (by_form.cpp), where the form runs.
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

// For each slot, the cheapest loop that reads and writes the planes that it does.
template <class Form>
std::span<const SlotsRoutine> Limits();

// The masked normal blend, written by hand.
template <class Form>
RoutineGetter MaskedBlendByHand();

// Adds registers without touching memory: kAddsInRound times `rounds`.
inline constexpr int kAddsInRound = 8;
template <class Form>
void AddRegisters(int rounds);

}  // namespace vantrix::bench
