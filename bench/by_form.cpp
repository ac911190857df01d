// Registers what is compiled once for each form.
#include "bench/by_form.h"

#include <x86intrin.h>

#include <algorithm>

#include "bench/bench.h"
#include "plugin/base/instruction_sets.h"

namespace vantrix::bench {
namespace {

// Calls visit.operator()<Form>() for each form with registers that runs here.
template <class Visit>
void ForEachThatRuns(Visit visit) {
  Forms::ForEach([&]<class Form>() {
    if constexpr (Form::kBytes > 1)
      if (Form::RunsOn(instructionSets)) visit.template operator()<Form>();
  });
}

void AddLimits(const char* name, std::span<const SlotsRoutine> limits) {
  for (const SlotsRoutine& limit : limits)
    for (const uint16_t slot : limit.slots)
      Competitors().push_back({limit.suite, slot, name, limit.routine(), limit.onlySetting});
}

template <class Form>
double AddsPerCycle() {
  constexpr int kRounds = 10000;
  uint64_t best = ~uint64_t{0};
  for (int run = 0; run < 5000; ++run) {  // longer than what disturbs a few of them
    const uint64_t start = __rdtsc();
    AddRegisters<Form>(kRounds);
    best = std::min(best, uint64_t{__rdtsc() - start});
  }
  return kRounds * kAddsInRound / (static_cast<double>(best) * CyclesPerTick());
}

}  // namespace

void AddCompetitorsByForm() {
  AddLimits("limit", Limits<Sse2>());
  std::span<const SlotsRoutine> widest;
  ForEachThatRuns([&]<class Form>() {
    if (Form::kBytes > Sse2::kBytes) widest = Limits<Form>();
    Competitors().push_back({kBlend, 2, std::string("hand ") + Form::kName,
                             MaskedBlendByHand<Form>()(), nullptr, true});
  });
  AddLimits("limit widest", widest);
}

void DescribePorts() {
  ForEachThatRuns([]<class Form>() {
    benchmark::AddCustomContext(std::string("bytes added per cycle, ") + Form::kName,
                                std::to_string(AddsPerCycle<Form>() * Form::kBytes));
  });
}

}  // namespace vantrix::bench
