// Filtering along rows: suite rsmp slots 5, 13 and 26, FilterResampleHorizontal8, 16
// and 32F.
//
// Sample x of each row is the filter (suites/resample/filter.h) over
// the taps of item x: tapCount samples of the same source row. All
// rows share offsets and phases. The row count is unsigned. The sum of
//   8-bit samples    starts at 8192, wraps at 32 bits, is shifted right by 14 and clamped
//                    to 0..255
//   16-bit samples   the same, clamped to 0..32768, the full scale of such samples
//   floats           starts at 0, adds sample x weight in the order of the taps, and is
//                    multiplied by 2^-14 at the end
// With 0 or 1 taps the sample after the one in the list is copied, except that for floats 1 tap
// gives sample x 2^-14 x weight, in this order. A negative tap count sums nothing.
//
// Source bytes are read only from the first tap of a row to the last. If several terms of a sum of
// floats are not numbers, it is not defined which of them the sum becomes.
#pragma once

#include "suites/resample/signatures.h"

namespace vantrix {

// The lists are turned into a plan of the columns once for many rows
// (suites/resample/column_plan.h). Samples are fetched by the form's first
// access that serves a chunk of columns. A call that does not suit a plan
// (more taps than fit, a source of a few samples, 0 or 1 taps) goes to the
// narrower form's build; the narrowest takes it one sample at a time.
template <class Sample, class Form>
FilterHorizontal<Sample> FilterResampleHorizontal;

template <class Form>
inline constexpr auto& FilterResampleHorizontal8 = FilterResampleHorizontal<uint8_t, Form>;
template <class Form>
inline constexpr auto& FilterResampleHorizontal16 = FilterResampleHorizontal<uint16_t, Form>;
template <class Form>
inline constexpr auto& FilterResampleHorizontal32F = FilterResampleHorizontal<float, Form>;

}  // namespace vantrix
