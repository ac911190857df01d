#include <x86intrin.h>
#include <xmmintrin.h>

#include <algorithm>

#include "bench/bench.h"
#include "host/tables.h"
#include "plugin/startup.h"

namespace vantrix::bench {
namespace {

// Planes of 4096 x 4096 values of 8 bytes with their margins; taken up as it is used.
constexpr size_t kRegionBytes = size_t{130} << 20;

void Measure(benchmark::State& state, host::Exercise* exercise, Routine routine,
             host::Shape shape) {
  static host::Arena arena(8, kRegionBytes);
  uint64_t ticks = 0;
  host::Scene scene(arena, host::Choices(uint64_t{1}));
  scene.Measure(shape, [&](const std::function<void()>& call) {
    const uint64_t start = __rdtsc();
    for (auto _ : state) call();
    ticks = __rdtsc() - start;
  });
  exercise(routine, scene);
  const double cycles = static_cast<double>(ticks) * CyclesPerTick();
  const double calls = static_cast<double>(state.iterations());
  state.counters["cycles_per_row"] = cycles / calls / shape.rows;
  state.counters["cycles_per_sample"] = cycles / calls / shape.rows / shape.columns;
}

}  // namespace

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

void Register(const std::string& name, host::Exercise* exercise, Routine routine,
              host::Shape shape) {
  const std::string full =
      name + "/" + std::to_string(shape.rows) + "x" + std::to_string(shape.columns);
  benchmark::RegisterBenchmark(full.c_str(), [=](benchmark::State& state) {
    Measure(state, exercise, routine, shape);
  })->MinTime(0.02);
}

}  // namespace vantrix::bench

int main(int count, char** arguments) {
  using namespace vantrix;
  static const host::Tables tables;
  int16_t result;
  const uint32_t control = _mm_getcsr();
  if (Startup(tables.Block(), &result, kThisSystem) != 1) return 1;
  _mm_setcsr(control);
  bench::RegisterFillArray();
  bench::RegisterKernels();
  bench::RegisterMaskedBlend();
  bench::RegisterResample();
  bench::RegisterRuns();
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
  benchmark::AddCustomContext("cycles_per_tick", std::to_string(bench::CyclesPerTick()));
  benchmark::RunSpecifiedBenchmarks();
}
