// The suites that hold slots of ours, and what each has.
#pragma once

#include <iterator>

#include "plugin/base/suites.h"
#include "suites/blend/slots.h"
#include "suites/convert/slots.h"
#include "suites/filter/slots.h"
#include "suites/kernels.h"
#include "suites/memory/slots.h"
#include "suites/paint/slots.h"
#include "suites/path/slots.h"
#include "suites/resample/slots.h"
#include "suites/select/slots.h"

namespace vantrix {

// The host's table, our slot table, and the builds in each form.
template <SuiteIndex kSuiteIndex, auto& kSavedSuite, auto& kSlotTable, class BuildLists>
struct ServedSuite {
  static constexpr SuiteIndex kIndex = kSuiteIndex;
  static constexpr auto& kSuite = kSavedSuite;
  static constexpr auto& kSlots = kSlotTable;
  using Kernels = BuildLists;
};

using ServedBlend = ServedSuite<kBlend, blendSuite, kBlendSlots, BlendKernels>;
using ServedConvert = ServedSuite<kConvert, convertSuite, kConvertSlots, ConvertKernels>;
using ServedFilter = ServedSuite<kFilter, filterSuite, kFilterSlots, FilterKernels>;
using ServedMemory = ServedSuite<kMemory, memorySuite, kMemorySlots, MemoryKernels>;
using ServedPaint = ServedSuite<kPaint, paintSuite, kPaintSlots, PaintKernels>;
using ServedPath = ServedSuite<kPath, pathSuite, kPathSlots, PathKernels>;
using ServedResample = ServedSuite<kResample, resampleSuite, kResampleSlots, ResampleKernels>;
using ServedSelect = ServedSuite<kSelect, selectSuite, kSelectSlots, SelectKernels>;

// Calls visit.operator()<Suite>() for each.
template <class Visit>
void ForEachServedSuite(Visit visit) {
  const auto visitAll = [&]<class... Suite>() { (visit.template operator()<Suite>(), ...); };
  visitAll.template operator()<ServedBlend, ServedConvert, ServedFilter, ServedMemory, ServedPaint,
                               ServedPath, ServedResample, ServedSelect>();
}

// Calls visit.operator()<Form>(suite, build) for every build, suite by suite, narrowest form first.
template <class InForms = Forms, class Visit>
void ForEachBuild(Visit visit) {
  ForEachServedSuite([&]<class Suite>() {
    InForms::ForEach([&]<class Form>() {
      for (const Build& build : Suite::Kernels::template In<Form>())
        if (build.routine) visit.template operator()<Form>(Suite::kIndex, build);
    });
  });
}

}  // namespace vantrix
