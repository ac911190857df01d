// The resampling routines as one would write them without a thought of registers, for
// the compiler to make the best of: what the kernels are measured against.
#pragma once

#include "suites/resample/signatures.h"

namespace vantrix::bench {

// Compiled with -O3, with the compiler's vectoriser and without.
struct Vectorised {};
struct NotVectorised {};

template <class How, class Sample>
FilterHorizontal<Sample> OrdinaryHorizontal;
template <class How, class Sample>
FilterVertical<Sample> OrdinaryVertical;
template <class How>
BoxAverageRows OrdinaryAverageRows;
template <class How>
BoxAverageArea OrdinaryAverageArea;
template <class How>
SampleAtPositions1D OrdinaryPositions1D;
template <class How>
SampleAtPositions2D OrdinaryPositions2D;
template <class How>
ResampleRowsStepped OrdinaryStepped;

}  // namespace vantrix::bench
