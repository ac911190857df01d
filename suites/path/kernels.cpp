// The kernels of suite path. They have one form, and are compiled once.
#include "suites/kernels.h"

#include "suites/path/fill_array.h"

namespace vantrix {
namespace {

constexpr Build kBuilds[] = {
    {24, Entry<ApplyFillArrayOperation>},
};

}  // namespace

template <>
Builds PathKernels::In<Scalar>() {
  return kBuilds;
}

}  // namespace vantrix
