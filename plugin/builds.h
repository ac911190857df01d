// The builds of the kernels: a kernel in one form each.
//
// A suite's kernels.cpp lists them and is compiled once for every form (common/forms.h),
// with that form's compiler flags and VX_FORM naming it. All builds of a slot give the same
// results.
#pragma once

#include <span>
#include <type_traits>

#include "common/forms.h"
#include "plugin/interface.h"

namespace vantrix {

// A getter, because the address of a function seen as a plain Routine is not a
// constant expression.
using RoutineGetter = Routine (*)();
template <auto& kFunction>
Routine Entry() {
  return reinterpret_cast<Routine>(&kFunction);
}

// A slot that a form does not list, or lists without a routine, keeps the build of a
// narrower form.
struct Build {
  uint16_t slot;
  RoutineGetter routine;
};
using Builds = std::span<const Build>;

// Null where the builds have none for the slot.
constexpr RoutineGetter FindBuild(Builds builds, uint16_t slot) {
  for (const Build& build : builds)
    if (build.slot == slot) return build.routine;
  return nullptr;
}

// The routine of a line that not every form has: inForm(Form{}) names it in those that the
// condition lets through, and is compiled in no other.
template <class Form, bool kHasIt, class InForm>
constexpr RoutineGetter Where(InForm inForm) {
  if constexpr (kHasIt)
    return inForm(Form{});
  else
    return nullptr;
}

// In the forms of Only; in those of at most, or at least, so many bytes; in all of them. The
// last three leave Ssse3 out: its instructions bring these kernels nothing that Sse2 lacks.
template <class Form, class... Only, class InForm>
constexpr RoutineGetter OnlyIn(InForm inForm) {
  return Where<Form, (std::is_same_v<Form, Only> || ...)>(inForm);
}
template <class Form, int kMost, class InForm>
constexpr RoutineGetter UpTo(InForm inForm) {
  return Where < Form, Form::kBytes <= kMost && !std::is_same_v < Form, Ssse3 >> (inForm);
}
template <class Form, int kLeast, class InForm>
constexpr RoutineGetter From(InForm inForm) {
  return Where < Form, Form::kBytes >= kLeast && !std::is_same_v < Form, Ssse3 >> (inForm);
}
template <class Form, class InForm>
constexpr RoutineGetter ButSsse3(InForm inForm) {
  return Where<Form, !std::is_same_v<Form, Ssse3>>(inForm);
}

}  // namespace vantrix
