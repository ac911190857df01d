// Every build of every kernel, for whoever goes through them all.
#pragma once

#include "suites/kernels.h"

namespace vantrix {

// Calls visit.operator()<Form>(suite, build) for each, suite by suite, narrowest form first.
template <class InForms = Forms, class Visit>
void ForEachBuild(Visit visit) {
  const auto inSuite = [&]<class Kernels>(SuiteIndex suite, Kernels) {
    InForms::ForEach([&]<class Form>() {
      for (const Build& build : Kernels::template In<Form>())
        if (build.routine) visit.template operator()<Form>(suite, build);
    });
  };
  inSuite(kBlend, BlendKernels{});
  inSuite(kConvert, ConvertKernels{});
  inSuite(kFilter, FilterKernels{});
  inSuite(kMemory, MemoryKernels{});
  inSuite(kPaint, PaintKernels{});
  inSuite(kPath, PathKernels{});
  inSuite(kResample, ResampleKernels{});
  inSuite(kSelect, SelectKernels{});
}

}  // namespace vantrix
