#include "suites/filter/convolve.inl"

namespace vantrix {

template ConvolveRoutine FilterConvolveVertical8<OneSample>;
template ConvolveRoutine FilterConvolveVertical8<Sse2>;

}  // namespace vantrix
