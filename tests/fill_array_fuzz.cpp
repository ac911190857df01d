// Coverage-guided fuzzing of the fold of fill arrays: libFuzzer makes the choices for the arrays.
// Arrays of any contents are compared with the model, including reports, and well-formed ones with
// the host's own routine.
#include <cstdio>
#include <cstdlib>

#include "common/forms.h"
#include "host/exercise/exercises.h"
#include "host/reference/reference.h"
#include "plugin/base/suites.h"
#include "suites/memory/copy.h"
#include "suites/path/fill_array.h"
#include "tests/path_model.h"

namespace vantrix {
namespace {

std::string CompareWellFormed(host::Choices choose) {
  static Routine memory[] = {AsRoutine(CopyBytes<Sse2>)};
  static host::Arena arena;
  memorySuite.live = memory;
  const host::Reference& reference = host::PathReferences()[0];
  for (FillArrayRoutine* const fold : FoldRoutines(choose.Below(2) != 0)) {
    std::string difference = host::CompareRoutines(reference.exercise, reference.routine,
                                                   AsRoutine(fold), host::Scene(arena, choose));
    if (!difference.empty()) return difference;
  }
  return {};
}

}  // namespace
}  // namespace vantrix

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  using namespace vantrix;
  host::Choices choose(std::span(bytes, size));
  const std::string difference =
      choose.Below(4) == 0 ? CompareWellFormed(choose) : ComparePathCase(ChoosePathCase(choose));
  if (difference.empty()) return 0;
  std::fprintf(stderr, "%s\n", difference.c_str());
  std::abort();
}
