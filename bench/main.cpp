#include <xmmintrin.h>

#include "bench/bench.h"
#include "host/tables.h"
#include "plugin/startup.h"

int main(int count, char** arguments) {
  using namespace vantrix;
  static const host::Tables tables;
  int16_t result;
  const uint32_t control = _mm_getcsr();
  if (Startup(tables.Block(), &result, kThisSystem) != 1) return 1;
  _mm_setcsr(control);
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
  bench::AddCompetitorsByForm();
  bench::RegisterKernels();
  bench::RegisterFillArray();
  benchmark::AddCustomContext("cycles_per_tick", std::to_string(bench::CyclesPerTick()));
  bench::DescribePorts();
  benchmark::RunSpecifiedBenchmarks();
}
