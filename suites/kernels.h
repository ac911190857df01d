// What each suite has in a form: the lists of the suites' kernels.cpp.
#pragma once

#include "plugin/base/builds.h"

namespace vantrix {

struct BlendKernels {
  template <class Form>
  static Builds In();
};
struct ConvertKernels {
  template <class Form>
  static Builds In();
};
struct FilterKernels {
  template <class Form>
  static Builds In();
};
struct MemoryKernels {
  template <class Form>
  static Builds In();
};
struct PathKernels {
  template <class Form>
  static Builds In();
};
struct ResampleKernels {
  template <class Form>
  static Builds In();
};
struct SelectKernels {
  template <class Form>
  static Builds In();
};

// Routines of the host's own contract, all of them.
struct PaintKernels {
  template <class Form>
  static Builds In() {
    return {};
  }
};

}  // namespace vantrix
