// The kernels of suite sele, in the form that this unit is compiled for.
#include "suites/kernels.h"

#include "suites/select/classify.inl"
#include "suites/select/marks.inl"
#include "suites/select/propagate.inl"

namespace vantrix {
namespace {

template <class Form>
constexpr Build kBuilds[] = {
    {26, AtMost<Form, 32>([]<class F>(F) { return Entry<SelectSpreadMark8<F>>; })},
    {33, OnlyIn<Form, Sse2, Avx2>([]<class F>(F) { return Entry<SelectClassify8<F>>; })},
    {35, AtMost<Form, 32>([]<class F>(F) { return Entry<SelectPropagate8<F>>; })},
    {73, AtMost<Form, 32>([]<class F>(F) { return Entry<SelectPropagate16<F>>; })},
    {75, AtLeast<Form, 16>([]<class F>(F) { return Entry<SelectClassify16<F>>; })},
};

}  // namespace

template <>
Builds SelectKernels::In<VX_FORM>() {
  return kBuilds<VX_FORM>;
}

}  // namespace vantrix
