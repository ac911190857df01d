// Every build of every kernel, as test parameters.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <ostream>
#include <string>
#include <vector>

#include "host/catalog.h"
#include "plugin/base/instruction_sets.h"
#include "plugin/base/interface.h"
#include "plugin/base/system.h"
#include "suites/served.h"
#include "tests/text64.h"

namespace vantrix {

// Only Clang divides registers that are wider than the instructions into narrower registers.
#if defined(VANTRIX_TEXT64)
using TestForms = FormList<Text64>;
#else
using TestForms = FormList<>;
#endif

struct TestedBuild {
  SuiteIndex suite;
  uint16_t slot;
  const char* form;
  int bytes;  // of the form's registers
  Routine routine;
  bool runsHere;     // on this processor
  bool isInstalled;  // on processors that run it and no wider one
};

inline void PrintTo(const TestedBuild& build, std::ostream* stream) {
  *stream << host::Catalog()[build.suite].name << ' ' << build.slot << ' ' << build.form;
}

// Returns a name that GoogleTest accepts.
inline std::string NameOf(const TestedBuild& build) {
  return std::string(host::Catalog()[build.suite].name) + '_' + std::to_string(build.slot) + '_' +
         build.form;
}

inline const host::Reference* ReferenceOf(const TestedBuild& build) {
  return host::FindReference(host::Catalog()[build.suite], build.slot);
}

// Returns what this processor runs.
inline InstructionSets InstructionSetsHere() {
  return DetectInstructionSets(kThisSystem, DetectFeatures(kThisSystem));
}

// Returns the builds in all forms, then those in the form of the tests.
inline std::vector<TestedBuild> AllBuilds() {
  std::vector<TestedBuild> builds;
  const InstructionSets here = InstructionSetsHere();
  const auto add = [&](bool isInstalled) {
    return [&, isInstalled]<class Form>(SuiteIndex suite, const Build& build) {
      builds.push_back({suite, build.slot, Form::kName, Form::kBytes, build.routine(),
                        Form::RunsOn(here), isInstalled});
    };
  };
  ForEachBuild(add(true));
  ForEachBuild<TestForms>(add(false));
  return builds;
}

// Returns the builds of a suite, or of some of its slots, that run here.
inline std::vector<TestedBuild> BuildsHere(SuiteIndex suite,
                                           std::initializer_list<uint16_t> slots = {}) {
  std::vector<TestedBuild> builds;
  for (const TestedBuild& build : AllBuilds())
    if (build.suite == suite && build.runsHere &&
        (slots.size() == 0 || std::ranges::find(slots, build.slot) != slots.end()))
      builds.push_back(build);
  return builds;
}

// Returns the builds of one slot that run here.
template <class Signature>
std::vector<Signature*> BuildsOf(SuiteIndex suite, uint16_t slot) {
  std::vector<Signature*> routines;
  for (const TestedBuild& build : BuildsHere(suite, {slot}))
    routines.push_back(Call<Signature>(build.routine));
  return routines;
}

}  // namespace vantrix
