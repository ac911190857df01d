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
    {12, Entry<FilterLocalDeviation8<Form>>},
    {28, Entry<FilterConvolveVertical8<Form>>},
    // Blocks lie at multiples of 16, where most loads of 64 bytes cross a line of the cache.
    {188, UpTo<Form, 32>([]<class F>(F) { return Entry<FilterBlockSAD128<F>>; })},
    {189, UpTo<Form, 32>([]<class F>(F) { return Entry<FilterBlockSignedSAD128<F>>; })},
    {191, Entry<FilterFloatBlock8<Form>>},
    {192, Entry<FilterFloatBlock12<Form>>},
    {193, Entry<FilterFloatBlock16<Form>>},
    {194, Entry<FilterFloatBlock20<Form>>},
};

}  // namespace

template <>
Builds FilterKernels::In<VX_FORM>() {
  return kBuilds<VX_FORM>;
}

}  // namespace vantrix
