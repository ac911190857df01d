#include "suites/filter/convolve.inl"

namespace vantrix {

template ConvolveRoutine FilterConvolveVertical8<Ssse3>;

}  // namespace vantrix
