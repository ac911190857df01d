// Every build of every kernel, as test parameters.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "host/catalog.h"
#include "suites/kernel_lists.h"

namespace vantrix {

struct Build {
  SuiteIndex suite;
  uint16_t slot;
  const char* form;
  Routine routine;
  bool runsHere;  // on this processor
};

inline void PrintTo(const Build& build, std::ostream* stream) {
  *stream << host::Catalog()[build.suite].name << ' ' << build.slot << ' ' << build.form;
}

// A name as GoogleTest takes it.
inline std::string NameOf(const Build& build) {
  return std::string(host::Catalog()[build.suite].name) + '_' + std::to_string(build.slot) + '_' +
         build.form;
}

inline const host::Reference* ReferenceOf(const Build& build) {
  return host::FindReference(host::Catalog()[build.suite], build.slot);
}

inline bool RunsHere(std::string_view form) {
  if (form == "SSSE3") return __builtin_cpu_supports("ssse3");
  if (form == "SSE41") return __builtin_cpu_supports("sse4.1");
  return true;
}

inline std::vector<Build> BuildsOf(const KernelList& list) {
  std::vector<Build> builds;
  for (const Kernel& kernel : list.kernels)
    ForEachBuild(kernel, [&](const char* form, RoutineGetter getter) {
      builds.push_back({list.suite, kernel.slot, form, getter(), RunsHere(form)});
    });
  return builds;
}

inline std::vector<Build> AllBuilds() {
  std::vector<Build> builds;
  for (const KernelList& list : KernelLists())
    for (const Build& build : BuildsOf(list)) builds.push_back(build);
  return builds;
}

}  // namespace vantrix
