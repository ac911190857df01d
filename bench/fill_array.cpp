// The fold of fill arrays beside an ordinary one. Rows of so many pending crossings over as many
// settled entries; they are scattered anew in each row, or lie as in the row above but for a step
// or none.
#include "suites/path/fill_array.h"

#include <x86intrin.h>

#include <algorithm>
#include <vector>

#include "bench/bench.h"

namespace vantrix::bench {
namespace {

// About 64 Ki crossings in all, so that no predictor can learn them by heart.
std::vector<uint32_t> MakeArray(uint32_t crossings, bool isScattered) {
  const uint32_t rows = std::max(65536 / crossings, 8u), stride = 2 * crossings + 2;
  constexpr uint32_t kRange = 1 << 22;
  std::vector<uint32_t> words(sizeof(FillArray) / 4 + (rows + 1) * size_t{stride});
  auto* const array = reinterpret_cast<FillArray*>(words.data());
  array->endRow = static_cast<int32_t>(rows);
  array->rowStride = static_cast<int32_t>(stride);
  host::Choices random(uint64_t{1});
  std::vector<uint32_t> positions(stride - 2);
  for (uint32_t& position : positions) position = kRange + random.Below(kRange);
  uint32_t* row = &words[sizeof(FillArray) / 4];
  for (uint32_t y = 0; y < rows; ++y, row += stride) {
    for (uint32_t& position : positions)
      position = isScattered ? random.Below(kRange) : position + random.Below(3) - 1;
    row[kEntryCount] = row[kPendingCount] = crossings;
    uint32_t* const pending = row + kFirstEntry + crossings;
    std::copy_n(positions.begin(), crossings, row + kFirstEntry);
    std::sort(row + kFirstEntry, pending);
    for (uint32_t i = 0; i < crossings; ++i)
      pending[i] = positions[crossings + i] << 1 | (i & kUpward);
  }
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
