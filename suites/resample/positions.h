// Sampling at listed positions: suite rsmp slots 18 and 19, SampleAtPositions1D8 and 2D8.
//
// A position is a source coordinate in 65536ths of a sample; exactly on a sample it is
// that sample's index x 65536. The mode is
//   0      nearest: of p = position + 32768 the sample at index p / 65536, rounded down
//   other  linear: of p = position + 128, with index i = p / 65536, rounded down, and
//          f = bits 8 to 15 of p: the sample at i where f is 0, else
//          first + SignedMultiply(f, second - first) of those at i and i + 1
// where p is exact, beyond 32 bits if need be. An output sample is written where all
// samples that it is made of, one or both, are inside the source; else it stays as it is.
#pragma once

#include "common/forms.h"
#include "suites/resample/signatures.h"

namespace vantrix {

// Samples 0 .. sourceLength - 1.
template <class Form>
SampleAtPositions1D SampleAtPositions1D8;

// Positions are pairs, x first. Linear goes along x, in one row or in two, and then from
// row to row, each step by the rule above and rounded.
template <class Form>
SampleAtPositions2D SampleAtPositions2D8;

}  // namespace vantrix
