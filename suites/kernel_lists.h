// The kernel lists of all suites, for whoever goes through every build.
#pragma once

#include <array>

#include "plugin/install.h"
#include "suites/blend/install.h"
#include "suites/convert/install.h"
#include "suites/filter/install.h"
#include "suites/memory/install.h"
#include "suites/paint/install.h"
#include "suites/path/install.h"
#include "suites/resample/install.h"
#include "suites/select/install.h"

namespace vantrix {

struct KernelList {
  SuiteIndex suite;
  std::span<const Kernel> kernels;
};

inline std::array<KernelList, 8> KernelLists() {
  return {{{kBlend, BlendKernels()},
           {kConvert, ConvertKernels()},
           {kFilter, FilterKernels()},
           {kMemory, MemoryKernels()},
           {kPaint, PaintKernels()},
           {kPath, PathKernels()},
           {kResample, ResampleKernels()},
           {kSelect, SelectKernels()}}};
}

// Calls visit(name of the form, getter) for each build that there is.
template <class Visit>
void ForEachBuild(const Kernel& kernel, Visit visit) {
  if (kernel.scalar) visit("scalar", kernel.scalar);
  if (kernel.sse2) visit("SSE2", kernel.sse2);
  if (kernel.ssse3) visit("SSSE3", kernel.ssse3);
  if (kernel.sse41) visit("SSE41", kernel.sse41);
}

}  // namespace vantrix
