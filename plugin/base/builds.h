// The builds of the kernels: a build is a kernel in one form.
//
// A suite's kernels.cpp lists them. It is compiled once for every form (common/forms.h), with the
// form's compiler flags and VX_FORM naming it. All builds of a slot give the same results.
#pragma once

#include <span>
#include <type_traits>

#include "common/forms.h"
#include "plugin/base/interface.h"

namespace vantrix {

// A function that returns the routine: the address of a routine
// seen as a plain Routine is not a constant expression.
using RoutineGetter = Routine (*)();
template <auto& kFunction>
Routine Entry() {
  return reinterpret_cast<Routine>(&kFunction);
}

// One line of a suite's list. If the getter is null, or a
// slot has no line, a narrower form's build serves the slot.
struct Build {
  uint16_t slot;
  RoutineGetter routine;
};
using Builds = std::span<const Build>;

// Returns null if the builds have none for the slot.
constexpr RoutineGetter FindBuild(Builds builds, uint16_t slot) {
  for (const Build& build : builds)
    if (build.slot == slot) return build.routine;
  return nullptr;
}

// The routine of a slot that not every form serves: inForm(Form{}) in the forms for which the
// condition holds, null in the others, in which inForm is not compiled.
template <class Form, bool kServes, class InForm>
constexpr RoutineGetter OnlyIf(InForm inForm) {
  if constexpr (kServes)
    return inForm(Form{});
  else
    return nullptr;
}

template <class Form, class... Only, class InForm>
constexpr RoutineGetter OnlyIn(InForm inForm) {
  return OnlyIf<Form, (std::is_same_v<Form, Only> || ...)>(inForm);
}
template <class Form, class Other, class InForm>
constexpr RoutineGetter ExceptIn(InForm inForm) {
  return OnlyIf<Form, !std::is_same_v<Form, Other>>(inForm);
}
// In forms of at most, or at least, that many bytes. Both leave Ssse3 out: its instructions bring
// these kernels nothing.
template <class Form, int kBytes, class InForm>
constexpr RoutineGetter AtMost(InForm inForm) {
  constexpr bool kServes = Form::kBytes <= kBytes && !std::is_same_v<Form, Ssse3>;
  return OnlyIf<Form, kServes>(inForm);
}
template <class Form, int kBytes, class InForm>
constexpr RoutineGetter AtLeast(InForm inForm) {
  constexpr bool kServes = Form::kBytes >= kBytes && !std::is_same_v<Form, Ssse3>;
  return OnlyIf<Form, kServes>(inForm);
}

}  // namespace vantrix
