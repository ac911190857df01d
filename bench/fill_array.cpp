// The fold of fill arrays, compared with an ordinary one.
#include "suites/path/fill_array.h"

#include <x86intrin.h>

#include <algorithm>
#include <vector>

#include "bench/bench.h"
#include "host/bench/crossings.h"
#include "host/fill_array.h"
#include "host/outline.h"
#include "plugin/base/instruction_sets.h"
#include "suites/served.h"

namespace vantrix::bench {
namespace {

using Words = std::vector<uint32_t>;

// Makes about 64 Ki crossings in all, so that no branch predictor can memorise them.
Words MakeArray(uint32_t crossings, bool isScattered) {
  const auto rows = static_cast<int32_t>(std::max(65536 / crossings, 8u));
  const auto stride = static_cast<int32_t>(2 * crossings + 2);
  Words words(host::FillArrayWords(rows, stride, false));
  host::FillRows(host::StartFillArray(words.data(), 0, rows, stride), crossings, isScattered);
  return words;
}

// Makes the crossings of outlines over a settled ring.
Words MakeArray(const std::vector<host::Outline>& outlines) {
  constexpr int32_t kRows = host::kOutlineSide * host::kRowsPerPixel, kStride = 258;
  Words words(host::FillArrayWords(kRows, kStride, false));
  FillArray* const array = host::StartFillArray(words.data(), 0, kRows, kStride);
  host::Rasterize(host::Circle(0.36), array);
  host::Rasterize(host::Circle(0.16), array);
  ApplyFillArrayOperationChecked(array, kUnion, 0);
  for (const host::Outline& outline : outlines) host::Rasterize(outline, array);
  return words;
}

void Measure(benchmark::State& state, Progress& progress, FillArrayRoutine* fold,
             const Words& original, bool byWinding) {
  Words words = original;
  auto* const array = reinterpret_cast<FillArray*>(words.data());
  uint64_t ticks = 0;
  for (auto _ : state) {
    words = original;
    const uint64_t start = __rdtsc();
    fold(array, kUnion, byWinding);
    ticks += __rdtsc() - start;
  }
  progress.Count(state);
  state.counters["cycles_per_row"] = static_cast<double>(ticks) * CyclesPerTick() /
                                     static_cast<double>(state.iterations()) / array->endRow;
}

// Registers a benchmark of each rule. make() makes the array, anew for each run.
template <class Make>
void Add(const std::string& form, FillArrayRoutine* fold, const char* rows,
         const std::string& which, const Make& make) {
  for (const bool byWinding : {false, true}) {
    std::string name = "path/24/";
    name.append(form).append("/").append(rows);
    name.append(byWinding ? "/winding/" : "/even-odd/").append(which);
    benchmark::RegisterBenchmark(name.c_str(),
                                 [=, progress = Progress{}](benchmark::State& state) mutable {
                                   Measure(state, progress, fold, make(), byWinding);
                                 });
  }
}

}  // namespace

void RegisterFillArray() {
  const auto add = [](const char* form, FillArrayRoutine* fold) {
    for (const uint32_t crossings : {2, 4, 8, 16, 64, 256, 4096})
      for (const bool isScattered : {true, false})
        Add(form, fold, isScattered ? "scattered" : "as above", std::to_string(crossings),
            [=] { return MakeArray(crossings, isScattered); });
    const auto addOutlines = [&](const char* which, const std::vector<host::Outline>& outlines) {
      Add(form, fold, "outlines", which, [=] { return MakeArray(outlines); });
    };
    addOutlines("circle", {host::Circle(0.45)});
    addOutlines("star", {host::Star(7, 3, 0.48)});
    addOutlines("letters", host::Letters());
    addOutlines("hatching", host::Hatching());
  };
  add("vectorised", reinterpret_cast<FillArrayRoutine*>(FindVectorisedByGcc(kPath, 24)));
  add("unvectorised", reinterpret_cast<FillArrayRoutine*>(FindUnvectorisedByGcc(kPath, 24)));
  ForEachBuild([&]<class Form>(SuiteIndex suite, const Build& build) {
    if (suite == kPath && Form::RunsOn(instructionSets))
      add(Form::kName, reinterpret_cast<FillArrayRoutine*>(build.routine()));
  });
  add("checked", ApplyFillArrayOperationChecked);
}

}  // namespace vantrix::bench
