// The kernels of suite filt, in the form that this unit is compiled for.
#include "suites/kernels.h"

#include "suites/filter/convolve.inl"
#include "suites/filter/deviation.inl"
#include "suites/filter/differences.inl"
#include "suites/filter/float_blocks.inl"

namespace vantrix {
namespace {

template <class Form>
constexpr Build kBuilds[] = {
    {12, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<FilterLocalDeviation8<F>>; })},
    {28, Entry<FilterConvolveVertical8<Form>>},
    // Blocks lie at multiples of 16, where most loads of 64 bytes cross a line of the cache.
    {188, AtMost<Form, 32>([]<class F>(F) { return Entry<FilterBlockSAD128<F>>; })},
    {189, AtMost<Form, 32>([]<class F>(F) { return Entry<FilterBlockSignedSAD128<F>>; })},
    {191, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<FilterFloatBlock8<F>>; })},
    {192, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<FilterFloatBlock12<F>>; })},
    {193, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<FilterFloatBlock16<F>>; })},
    {194, ExceptIn<Form, Ssse3>([]<class F>(F) { return Entry<FilterFloatBlock20<F>>; })},
};

}  // namespace

template <>
Builds FilterKernels::In<VX_FORM>() {
  return kBuilds<VX_FORM>;
}

}  // namespace vantrix
