// Every case in every form: the builds of the kernel, the ordinary routine as g++ compiles
// it with and without its vectoriser, and the competitors.
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "bench/bench.h"
#include "host/bench/turns.h"
#include "host/catalog.h"
#include "plugin/base/instruction_sets.h"
#include "suites/served.h"

namespace vantrix::bench {
namespace {

// Ends the program unless both routines do the same: only then are they timed.
void RequireSame(const std::string& name, const Case& job, Routine expected, Routine actual) {
  const std::string difference =
      host::CompareMeasured(MeasuringArena(), job.exercise, expected, actual, job.how);
  if (difference.empty()) return;
  std::fprintf(stderr, "%s: %s\n", name.c_str(), difference.c_str());
  std::exit(1);
}

// Whether the slot has a build in the SSSE3 form that runs here. Then no processor that runs it has
// the SSE2 build in a table.
bool HasSsse3Build(SuiteIndex suite, uint16_t slot) {
  bool has = false;
  ForEachBuild([&]<class Form>(SuiteIndex inSuite, const Build& build) {
    has |= std::is_same_v<Form, Ssse3> && inSuite == suite && build.slot == slot;
  });
  return has && instructionSets.ssse3;
}

// A routine that returns at once, whatever its arguments are.
void ReturnAtOnce() {}

// Returns the name of the widest form that runs here of those in which the slot has a build.
const char* InstalledForm(SuiteIndex suite, uint16_t slot) {
  const char* widest = nullptr;
  ForEachBuild([&]<class Form>(SuiteIndex inSuite, const Build& build) {
    if (inSuite == suite && build.slot == slot && Form::RunsOn(instructionSets))
      widest = Form::kName;
  });
  return widest;
}

void RegisterCase(const Case& job) {
  const host::SuiteEntry& suite = host::Catalog()[job.suite];
  const Routine expected = host::FindReference(suite, job.slot)->routine;
  const std::string name = std::string(suite.name) + "/" + std::to_string(job.slot) +
                           (job.setting.empty() ? "" : " " + job.setting) + "/";
  const auto add = [&](const std::string& form, Routine routine, auto isWanted) {
    for (const host::Shape shape : job.shapes)
      if (isWanted(shape))
        Register(name + form, job.exercise, routine, shape, job.how, job.threads);
  };
  const auto anyShape = [](host::Shape) { return true; };
  const auto planesAndRows = [](host::Shape shape) { return !IsCall(shape) && !IsHuge(shape); };
  const auto notBiggest = [=](host::Shape shape) {
    return planesAndRows(shape) && !IsBiggest(shape);
  };
  const auto wholePlanes = [](host::Shape shape) { return !IsShortRow(shape) && !IsCall(shape); };
  const auto inCache = [=](host::Shape shape) { return notBiggest(shape) && !IsShortRow(shape); };
  const std::string_view installed = InstalledForm(job.suite, job.slot);

  ForEachBuild([&]<class Form>(SuiteIndex inSuite, const Build& build) {
    if (inSuite != job.suite || build.slot != job.slot || !Form::RunsOn(instructionSets)) return;
    const bool isInstalled = installed == Form::kName;
    if (job.how.isMisaligned && Form::kBytes == 1) return;
    if (job.threads > 1 && !isInstalled) return;
    const Routine routine = build.routine();
    RequireSame(name + Form::kName, job, expected, routine);
    if (isInstalled)
      add(Form::kName, routine, anyShape);
    else if (Form::kBytes == 1)
      add(Form::kName, routine, notBiggest);
    else if (std::is_same_v<Form, Sse2> && HasSsse3Build(job.suite, job.slot))
      add(Form::kName, routine, inCache);
    else
      add(Form::kName, routine, planesAndRows);
  });
  if (job.how.isMisaligned || job.threads > 1) return;
  add("nothing", reinterpret_cast<Routine>(ReturnAtOnce), IsCall);
  const Routine vectorised = FindVectorisedByGcc(job.suite, job.slot);
  const Routine unvectorised = FindUnvectorisedByGcc(job.suite, job.slot);
  RequireSame(name + "vectorised", job, expected, vectorised);
  RequireSame(name + "unvectorised", job, expected, unvectorised);
  add("vectorised", vectorised,
      [=](host::Shape shape) { return wholePlanes(shape) && !IsHuge(shape); });
  add("unvectorised", unvectorised, inCache);
  for (const Competitor& other : Competitors()) {
    if (other.suite != job.suite || other.slot != job.slot) continue;
    if (other.onlySetting && job.setting != other.onlySetting) continue;
    if (other.isTwin) RequireSame(name + other.form, job, expected, other.routine);
    add(other.form, other.routine, wholePlanes);
  }
}

}  // namespace

void RegisterKernels() {
  for (const Case& job : Cases()) RegisterCase(job);
}

}  // namespace vantrix::bench
