// Filtering along rows: suite rsmp slots 5, 13 and 26, FilterResampleHorizontal8, 16
// and 32F.
//
// Sample x of each row is the filter (suites/resample/filter.h) over the taps of item x,
// which are tapCount samples of the same source row. Offsets and phases are shared by
// all rows, whose count is unsigned. The sum of
//   8-bit samples    starts at 8192, wraps at 32 bits, is shifted right by 14 and clamped
//                    to 0..255
//   16-bit samples   the same, clamped to 0..32768, the full scale of such samples
//   floats           starts at 0, adds sample x weight in the order of the taps, and is
//                    multiplied by 2^-14 at the end
// With no tap, and with one, the sample after the named one is copied; of floats one tap
// gives sample x 2^-14 x weight, in this order. A negative tap count sums nothing.
//
// No source byte is read but from the first to the last that the taps of a row name.
// Where several terms of a sum of floats are not numbers, which of them the sum becomes
// is not defined.
#pragma once

#include "common/forms.h"
#include "suites/resample/signatures.h"

namespace vantrix {

// Registers of samples are fetched by the first of the form's accesses that serves a
// stretch of columns (suites/resample/column_plan.h). The lists are turned into a plan of
// the columns once for many rows; what does not suit a plan (more taps than it holds, a
// source of a few samples, no or one tap) goes to the narrower form's build, and in the
// narrowest is taken one by one.
template <class Sample, class Form>
FilterHorizontal<Sample> FilterResampleHorizontal;

template <class Form>
inline constexpr auto& FilterResampleHorizontal8 = FilterResampleHorizontal<uint8_t, Form>;
template <class Form>
inline constexpr auto& FilterResampleHorizontal16 = FilterResampleHorizontal<uint16_t, Form>;
template <class Form>
inline constexpr auto& FilterResampleHorizontal32F = FilterResampleHorizontal<float, Form>;

}  // namespace vantrix
