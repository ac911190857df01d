// The table, from the lists of the kernels.
#include "plugin/form_index.h"

#include "plugin/base/instruction_sets.h"
#include "suites/served.h"

namespace vantrix {
namespace {

// Calls visit.operator()<Form>() for the form of this index.
template <class Visit>
void WithForm(int32_t form, Visit visit) {
  int32_t index = 0;
  Forms::ForEach([&]<class Form>() {
    if (index++ == form) visit.template operator()<Form>();
  });
}

Routine BuildOf(uint32_t suiteCode, uint32_t slot, int32_t form) {
  Routine found = nullptr;
  WithForm(form, [&]<class Wanted>() {
    ForEachBuild([&]<class Form>(SuiteIndex suite, const Build& build) {
      if (std::is_same_v<Form, Wanted> && kSuiteFormats[suite].code == suiteCode &&
          build.slot == slot)
        found = build.routine();
    });
  });
  return found;
}

uint32_t Runs(int32_t form) {
  bool runs = false;
  WithForm(form, [&]<class Form>() { runs = Form::RunsOn(instructionSets); });
  return runs;
}

template <class List>
constexpr const char* const* kNames = nullptr;
template <class... Form>
constexpr const char* kNamesOf[] = {Form::kName...};
template <class... Form>
constexpr const char* const* kNames<FormList<Form...>> = kNamesOf<Form...>;

}  // namespace

// Nothing in the plug-in reads it: the linker is told to keep it.
extern "C" {
extern const FormIndex vantrixFormIndex;
constexpr FormIndex vantrixFormIndex = {kFormIndexMark,
                                        &vantrixFormIndex,
                                        VANTRIX_VERSION,
                                        Forms::kCount,
                                        kNames<Forms>,
                                        BuildOf,
                                        Runs};
}

}  // namespace vantrix
