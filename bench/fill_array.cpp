// The fold of fill arrays beside an ordinary one: std::sort, and a merge with a branch
// at each step. Rows of so many pending crossings over as many settled entries; they are
// scattered anew in each row, or lie as in the row above but for a step or none.
#include "suites/path/fill_array.h"

#include <x86intrin.h>

#include <algorithm>
#include <vector>

#include "bench/bench.h"
#include "host/reference/reference.h"
#include "plugin/suites.h"
#include "suites/memory/signatures.h"

namespace vantrix::bench {
namespace {

// By operation: bit s for the state s, 1 inside the new shape and 2 inside the old spans.
constexpr uint8_t kCovered[] = {0b1110, 0b0100, 0b1000, 0b0110};

void FoldRow(uint32_t* row, uint32_t stride, uint32_t operation, bool byWinding, uint32_t* calc) {
  uint32_t* const list = row + stride - std::min(row[kPendingCount], stride - 2);
  std::sort(list, row + stride);
  uint32_t* end = list;
  if (byWinding) {
    int32_t winding = 0;
    for (const uint32_t* entry = list; entry < row + stride; ++entry) {
      const bool wasInside = winding != 0;
      winding += (*entry & kUpward) != 0 ? 1 : -1;
      if ((winding != 0) != wasInside) *end++ = *entry >> 1;
    }
  } else {
    for (; end < row + stride; ++end) *end >>= 1;
  }
  uint32_t* kept = list;
  for (const uint32_t* run = list; run < end;) {
    const uint32_t* next = run;
    while (next < end && *next == *run) ++next;
    if ((next - run) % 2 != 0) *kept++ = *run;
    run = next;
  }

  const uint32_t *a = list, *b = row + kFirstEntry;
  const uint32_t* const endB = b + std::min(row[kEntryCount], stride - 2);
  uint32_t *to = calc, *const endTo = calc + stride - 2;
  uint32_t state = 0, isCovered = 0;
  const auto take = [&](uint32_t value, uint32_t toggle) {
    state ^= toggle;
    const uint32_t now = kCovered[operation] >> state & 1;
    if (now == isCovered) return true;
    isCovered = now;
    if (to == endTo) return false;
    *to++ = value;
    return true;
  };
  bool fits = true;
  while (fits && a < kept && b < endB) {
    if (*a < *b)
      fits = take(*a++, 1);
    else if (*b < *a)
      fits = take(*b++, 2);
    else
      fits = take(*a++, 3), ++b;
  }
  while (fits && b < endB) fits = take(*b++, 2);
  while (fits && a < kept) fits = take(*a++, 1);
  row[kPendingCount] = 0;
  row[kEntryCount] = static_cast<uint32_t>(to - calc);
  Call<CopyBytesRoutine>(memorySuite.live[0])(reinterpret_cast<const uint8_t*>(calc),
                                              reinterpret_cast<uint8_t*>(row + kFirstEntry),
                                              static_cast<int32_t>(4 * (to - calc)));
}

void OrdinaryFold(FillArray* array, uint32_t operation, uint32_t nonZeroWinding) {
  const int32_t rows = array->endRow - array->firstRow;
  const auto stride = static_cast<uint32_t>(array->rowStride);
  auto* const first = reinterpret_cast<uint32_t*>(array + 1);
  uint32_t* const calc = first + intptr_t{rows} * stride;
  for (uint32_t* row = first; row < calc; row += stride) {
    if (row[kPendingCount] != 0)
      FoldRow(row, stride, operation, nonZeroWinding != 0, calc);
    else if (operation == kIntersect)
      row[kEntryCount] = 0;
  }
}

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

void Measure(benchmark::State& state, FillArrayRoutine* fold, uint32_t crossings, bool isScattered,
             bool byWinding) {
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
                                       [=](benchmark::State& state) {
                                         Measure(state, fold, crossings, isScattered, byWinding);
                                       })
              ->MinTime(0.005);
        }
  };
  add("default", reinterpret_cast<FillArrayRoutine*>(host::PathReferences()[0].routine));
  add("ordinary", OrdinaryFold);
  add("plain", ApplyFillArrayOperation);
  add("checked", ApplyFillArrayOperationChecked);
}

}  // namespace vantrix::bench
