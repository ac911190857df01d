// The fold of fill arrays, compared with an ordinary one.
#include "suites/path/fill_array.h"

#include <x86intrin.h>

#include <algorithm>
#include <vector>

#include "bench/bench.h"
#include "host/bench/crossings.h"
#include "host/fill_array.h"

namespace vantrix::bench {
namespace {

// Makes about 64 Ki crossings in all, so that no branch predictor can memorise them.
std::vector<uint32_t> MakeArray(uint32_t crossings, bool isScattered) {
  const auto rows = static_cast<int32_t>(std::max(65536 / crossings, 8u));
  const auto stride = static_cast<int32_t>(2 * crossings + 2);
  std::vector<uint32_t> words(host::FillArrayWords(rows, stride, false));
  host::FillRows(host::StartFillArray(words.data(), 0, rows, stride), crossings, isScattered);
  return words;
}

void Measure(benchmark::State& state, Progress& progress, FillArrayRoutine* fold,
             uint32_t crossings, bool isScattered, bool byWinding) {
  const auto original = MakeArray(crossings, isScattered);
  auto words = original;
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

}  // namespace

void RegisterFillArray() {
  const auto add = [](const char* form, FillArrayRoutine* fold) {
    for (const uint32_t crossings : {2, 4, 8, 16, 64, 256, 4096})
      for (const bool isScattered : {true, false})
        for (const bool byWinding : {false, true}) {
          const std::string name = std::string("path/24/") + form +
                                   (isScattered ? "/scattered" : "/as above") +
                                   (byWinding ? "/winding/" : "/even-odd/");
          benchmark::RegisterBenchmark((name + std::to_string(crossings)).c_str(),
                                       [=, progress = Progress{}](benchmark::State& state) mutable {
                                         Measure(state, progress, fold, crossings, isScattered,
                                                 byWinding);
                                       });
        }
  };
  add("vectorised", reinterpret_cast<FillArrayRoutine*>(FindVectorisedByGcc(kPath, 24)));
  add("unvectorised", reinterpret_cast<FillArrayRoutine*>(FindUnvectorisedByGcc(kPath, 24)));
  add("plain", ApplyFillArrayOperation);
  add("checked", ApplyFillArrayOperationChecked);
}

}  // namespace vantrix::bench
