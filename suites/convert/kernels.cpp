// The kernels of suite conv, in the form that this unit is compiled for.
#include "suites/kernels.h"

#include "suites/convert/conversions.inl"

namespace vantrix {
namespace {

template <class Form>
constexpr Build kBuilds[] = {
    {18, Entry<Expand8To16<Form>>},
    {19, Entry<RescaleWords<Form>>},
};

}  // namespace

template <>
Builds ConvertKernels::In<VX_FORM>() {
  return kBuilds<VX_FORM>;
}

}  // namespace vantrix
