#include <x86intrin.h>

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "bench/bench.h"

namespace vantrix::bench {
namespace {

// Room for planes of 4096 x 4096 values of 4 bytes, or 8192 x 8192 of one, including filters'
// sources with their margins. Memory is committed as it is used.
constexpr size_t kRegionBytes = size_t{130} << 20;

void Measure(benchmark::State& state, host::Exercise* exercise, Routine routine, host::Shape shape,
             host::Measured how) {
  uint64_t ticks = 0;
  host::Scene scene(MeasuringArena(), host::Choices(uint64_t{1}));
  const auto run = [&](const std::function<void()>& call) {
    auto iteration = state.begin();
    const auto end = state.end();  // all threads wait for one another here
    const uint64_t start = __rdtsc();
    for (; iteration != end; ++iteration) call();
    ticks = __rdtsc() - start;
  };
  scene.Measure(shape, run, how);
  exercise(routine, scene);
  const double cycles = static_cast<double>(ticks) * CyclesPerTick();
  const double calls = static_cast<double>(state.iterations());
  const auto count = [&](const char* what, double value) {
    state.counters[what] = benchmark::Counter(value, benchmark::Counter::kAvgThreads);
  };
  count("cycles_per_row", cycles / calls / shape.rows);
  count("cycles_per_sample", cycles / calls / shape.rows / shape.columns);
  count("arguments", static_cast<double>(scene.TakeOutcome().arguments.size()));
}

}  // namespace

host::Arena& MeasuringArena() {
  static thread_local host::Arena arena(8, kRegionBytes);
  return arena;
}

void Progress::Count(const benchmark::State& state) {
  const bool isSearch = state.iterations() != iterations_;
  iterations_ = state.iterations();
  if (isSearch) return;
  using Clock = std::chrono::steady_clock;
  using std::chrono::duration_cast, std::chrono::seconds;
  static const auto start = Clock::now();
  static auto told = start;
  static int runs = 0;
  ++runs;
  if (Clock::now() - told < seconds(20)) return;
  told = Clock::now();
  std::fprintf(stderr, "%lld s, %d runs\n",
               static_cast<long long>(duration_cast<seconds>(told - start).count()), runs);
}

double CyclesPerTick() {
  static const double factor = [] {
    constexpr int kAdds = 80000;
    uint64_t best = ~uint64_t{0};
    for (int run = 0; run < 200; ++run) {
      uint64_t sum = 0;
      const uint64_t start = __rdtsc();
      for (int i = 0; i < kAdds / 8; ++i)
        asm volatile(
            "add $1, %0\nadd $1, %0\nadd $1, %0\nadd $1, %0\n"
            "add $1, %0\nadd $1, %0\nadd $1, %0\nadd $1, %0"
            : "+r"(sum));
      best = std::min(best, uint64_t{__rdtsc() - start});
    }
    return kAdds / static_cast<double>(best);
  }();
  return factor;
}

void Register(const std::string& name, host::Exercise* exercise, Routine routine, host::Shape shape,
              host::Measured how, int threads) {
  const std::string full =
      name + "/" + std::to_string(shape.rows) + "x" + std::to_string(shape.columns);
  auto* const registered = benchmark::RegisterBenchmark(
      full.c_str(), [=, progress = Progress{}](benchmark::State& state) mutable {
        Measure(state, exercise, routine, shape, how);
        if (state.thread_index() == 0) progress.Count(state);
      });
  if (threads > 1) registered->Threads(threads);  // which adds their number to the name
}

std::vector<Competitor>& Competitors() {
  static std::vector<Competitor> competitors;
  return competitors;
}

}  // namespace vantrix::bench
