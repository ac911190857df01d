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

// The routine of a line that not every form has: inForm(Form{}) names it, in the forms of
// Only.
template <class Form, class... Only, class InForm>
constexpr RoutineGetter OnlyIn(InForm inForm) {
  if constexpr ((std::is_same_v<Form, Only> || ...))
    return inForm(Form{});
  else
    return nullptr;
}
// The same for the forms of at most, or at least, so many bytes.
template <class Form, int kMost, class InForm>
constexpr RoutineGetter UpTo(InForm inForm) {
  if constexpr (Form::kBytes <= kMost)
    return inForm(Form{});
  else
    return nullptr;
}
template <class Form, int kLeast, class InForm>
constexpr RoutineGetter From(InForm inForm) {
  if constexpr (Form::kBytes >= kLeast)
    return inForm(Form{});
  else
    return nullptr;
}

}  // namespace vantrix
