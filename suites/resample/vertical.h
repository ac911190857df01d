// Filtering along columns: suite rsmp slots 6 and 27, FilterResampleVertical8 and 32F.
//
// Row i of the output is the filter (suites/resample/filter.h) over the taps of item i: tapCount
// rows of the source. The sum of
//   8-bit samples    starts at 8192, wraps at 32 bits, is shifted right by 14 and clamped
//                    to 0..255
//   floats           starts at 0, adds sample x weight in the order of the taps, and is
//                    multiplied by 2^-14 at the end
// With 0 or 1 taps the row after the one in the list is copied, by the memory suite's live
// CopyBytes. A negative tap count sums nothing.
//
// For floats, strides count in whole samples: stride / 4, truncated. If several terms of a sum are
// not numbers, it is not defined which of them the sum becomes.
#pragma once

#include "suites/resample/signatures.h"

namespace vantrix {

template <class Form>
FilterVertical<uint8_t> FilterResampleVertical8;
template <class Form>
FilterVertical<float> FilterResampleVertical32F;

}  // namespace vantrix
