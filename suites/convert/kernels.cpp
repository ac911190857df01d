// The kernels of suite conv, in the form that this unit is compiled for.
#include "suites/kernels.h"

#include "suites/convert/conversions.inl"

namespace vantrix {
namespace {

template <class Form>
constexpr Build kBuilds[] = {
    {18, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<Expand8To16<F>>; })},
    {19, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<RescaleWords<F>>; })},
};

}  // namespace

template <>
Builds ConvertKernels::In<VX_FORM>() {
  return kBuilds<VX_FORM>;
}

}  // namespace vantrix
