// The kernels of suite path, in the form that this unit is compiled for.
#include "suites/kernels.h"

#include "suites/path/fill_array.inl"

namespace vantrix {
namespace {

template <class Form>
constexpr Build kBuilds[] = {
    {24, OnlyIn<Form, Scalar, Sse2, Avx2>(
             []<class F>(F) { return Entry<ApplyFillArrayOperation<F>>; })},
};

}  // namespace

template <>
Builds PathKernels::In<VX_FORM>() {
  return kBuilds<VX_FORM>;
}

}  // namespace vantrix
