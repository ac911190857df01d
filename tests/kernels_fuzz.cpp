// Coverage-guided differential fuzzing of all builds: libFuzzer chooses
// a build and a scene (shape, strides, places, aliasing, contents,
// arguments). The build must do what the host's own routine does.
#include <cstdio>
#include <cstdlib>

#include "tests/builds.h"
#include "tests/started_tables.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  using namespace vantrix;
  static const std::vector<TestedBuild> builds = AllBuilds();
  static host::Arena arena;
  StartedTables();

  host::Choices choose(std::span(bytes, size));
  const TestedBuild& build = builds[choose.Below(static_cast<uint32_t>(builds.size()))];
  if (!build.runsHere) return 0;
  const host::Reference* const reference = ReferenceOf(build);
  const std::string difference = host::CompareRoutines(reference->exercise, reference->routine,
                                                       build.routine, host::Scene(arena, choose));
  if (difference.empty()) return 0;
  std::fprintf(stderr, "%s: %s\n", NameOf(build).c_str(), difference.c_str());
  std::abort();
}
