// The kernels of suite rsmp, in the form that this unit is compiled for.
#include "suites/kernels.h"

#include "suites/resample/box_area.inl"
#include "suites/resample/box_rows.inl"
#include "suites/resample/horizontal.inl"
#include "suites/resample/positions.inl"
#include "suites/resample/stepped.h"
#include "suites/resample/vertical_32f.inl"
#include "suites/resample/vertical_8.inl"

namespace vantrix {
namespace {

template <class Form>
constexpr Build kBuilds[] = {
    {3, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<BoxAverageRows8<F>>; })},
    {5, Entry<FilterResampleHorizontal8<Form>>},
    {6, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<FilterResampleVertical8<F>>; })},
    {7, OnlyIn<Form, Scalar>([](auto) { return Entry<ResampleRowsStepped8>; })},
    {13, Entry<FilterResampleHorizontal16<Form>>},
    {18, AtMost<Form, 32>([]<class F>(F) { return Entry<SampleAtPositions1D8<F>>; })},
    {19, AtMost<Form, 32>([]<class F>(F) { return Entry<SampleAtPositions2D8<F>>; })},
    {24, Entry<BoxAverageArea8<Form>>},
    {26, Entry<FilterResampleHorizontal32F<Form>>},
    {27, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<FilterResampleVertical32F<F>>; })},
};

}  // namespace

template <>
Builds ResampleKernels::In<VX_FORM>() {
  return kBuilds<VX_FORM>;
}

}  // namespace vantrix
