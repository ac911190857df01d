// The kernels of suite memo, in the form that this unit is compiled for.
#include "suites/kernels.h"

#include "suites/memory/copy.inl"
#include "suites/memory/equal.inl"
#include "suites/memory/fill.inl"

namespace vantrix {
namespace {

template <class Form>
constexpr Build kBuilds[] = {
    // Slots 0 and 1 are open for either flag, so there is a build for processors with SSSE3 alone.
    {0, OnlyIn<Form, Sse2, Ssse3>([]<class F>(F) { return Entry<CopyBytes<F>>; })},
    {1, OnlyIn<Form, Sse2, Ssse3>([]<class F>(F) { return Entry<CopyRect<CopyBytes<F>>>; })},
    {3, OnlyIn<Form, Sse2>([]<class F>(F) { return Entry<FillBytes<F>>; })},
    {4, OnlyIn<Form, Sse2>([]<class F>(F) { return Entry<FillRect<FillBytes<F>>>; })},
    {17, OnlyIn<Form, Sse2, Avx2>([]<class F>(F) { return Entry<BytesAllEqual<F>>; })},
    {18,
     OnlyIn<Form, Sse2, Avx2>([]<class F>(F) { return Entry<RectAllEqual<BytesAllEqual<F>>>; })},
    {65, AtLeast<Form, 16>([]<class F>(F) { return Entry<FillWords<F>>; })},
    {66, AtLeast<Form, 16>([]<class F>(F) { return Entry<FillWordRect<FillWords<F>>>; })},
};

}  // namespace

template <>
Builds MemoryKernels::In<VX_FORM>() {
  return kBuilds<VX_FORM>;
}

}  // namespace vantrix
