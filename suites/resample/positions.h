// Sampling at listed positions: suite rsmp slots 18 and 19, SampleAtPositions1D8 and 2D8.
//
// A position is a source coordinate in 65536ths of a
// sample; that of sample i is i x 65536. The mode is
//   0      nearest: with p = position + 32768, the sample at index p / 65536, rounded down
//   other  linear: with p = position + 128, i = p / 65536, rounded down, and f = bits 8 to 15 of p,
//          the sample at i if f is 0, else first + SignedMultiply(f, second - first), first and
//          second being the samples at i and i + 1
// p is exact, in more than 32 bits if needed. An output sample is written only if all samples that
// it needs, one or two, are inside the source; else it stays as it is.
#pragma once

#include "suites/resample/signatures.h"

namespace vantrix {

// The source has samples 0 .. sourceLength - 1.
template <class Form>
SampleAtPositions1D SampleAtPositions1D8;

// Positions are pairs, x first. Linear goes along x, in one row or in two, and then from row to
// row. Each step is rounded by the rule above.
template <class Form>
SampleAtPositions2D SampleAtPositions2D8;

}  // namespace vantrix
