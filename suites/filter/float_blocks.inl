// Bodies of float_blocks.h, for the units that instantiate them.
#pragma once

#include "common/overlap.h"
#include "plugin/base/suites.h"
#include "suites/filter/float_blocks.h"
#include "suites/kernels.h"

namespace vantrix {
namespace {

constexpr int kPhases = 4;

// Four outputs a step, each with its terms added in order.
template <int kSpan>
VX_INLINE void TakeSteps(const float* matrix, uint32_t steps, const float* input, float* output) {
  for (; steps > 0; --steps, input += kPhases, output += kPhases) {
    for (int r = 0; r < kPhases; ++r) {
      float sum = matrix[r * kSpan] * input[0];
      for (int j = 1; j < kSpan; ++j) sum += matrix[r * kSpan + j] * input[j];
      output[r] = sum;
    }
  }
}

// The columns of the matrix, the four phases of each in every group of V.
template <class V, int kSpan>
struct MatrixColumns {
  V column[kSpan];

  VX_INLINE explicit MatrixColumns(const float* matrix) {
#pragma GCC unroll 20
    for (int j = 0; j < kSpan; ++j)
      column[j] = InEveryGroup<V>(
          Group<float>{matrix[j], matrix[kSpan + j], matrix[2 * kSpan + j], matrix[3 * kSpan + j]});
  }
  template <class Wide>
  VX_INLINE explicit MatrixColumns(const MatrixColumns<Wide, kSpan>& wide) {
#pragma GCC unroll 20
    for (int j = 0; j < kSpan; ++j) column[j] = Half<0>(wide.column[j]);
  }
};

// The four outputs of a step are the lanes of a group, whose terms are added in the same order. The
// groups of a register are consecutive steps, whose inputs are consecutive in memory. The tail is
// taken in narrower registers.
template <class V, int kSpan>
VX_INLINE void TakeSteps(const MatrixColumns<V, kSpan>& matrix, uint32_t steps, const float* input,
                         float* output) {
  constexpr int kFloats = kLaneCount<V>, kAtOnce = kFloats / kPhases;
  for (; steps >= kAtOnce; steps -= kAtOnce, input += kFloats, output += kFloats) {
    V sum = matrix.column[0] * Spread<0>(Load<V>(input));
#pragma GCC unroll 5
    for (int j = 0; j < kSpan; j += 4) {
      const V four = Load<V>(input + j);
      if (j > 0) sum += matrix.column[j] * Spread<0>(four);
      sum += matrix.column[j + 1] * Spread<1>(four);
      sum += matrix.column[j + 2] * Spread<2>(four);
      sum += matrix.column[j + 3] * Spread<3>(four);
    }
    Store(output, sum);
  }
  if constexpr (kAtOnce > 1)
    TakeSteps(MatrixColumns<HalfOf<V>, kSpan>(matrix), steps, input, output);
}

// kHandsOver: whether the host's routine takes the rest of the inputs.
template <int kSpan, uint16_t kSlot, bool kHandsOver, class Form>
VX_INLINE void Slide(const float* input, uint32_t count, const float* matrix, uintptr_t fourth,
                     uintptr_t fifth, float* output) {
  if (count < kSpan) return;
  const uint32_t inSpans = kHandsOver ? count / kSpan * kSpan : count;
  const uint32_t steps = (inSpans - kSpan) / kPhases + 1;
  if constexpr (Form::kBytes == 1) {
    TakeSteps<kSpan>(matrix, steps, input, output);
  } else {
    const PlaneArea outputs{output, 0, 1, 4 * kPhases * int64_t{steps}};
    if (Overlap({input, 0, 1, 4 * int64_t{count}}, outputs) ||
        Overlap({matrix, 0, 1, 4 * kPhases * kSpan}, outputs))
      return Call<FloatBlockRoutine>(FindBuild(FilterKernels::In<Scalar>(), kSlot)())(
          input, count, matrix, fourth, fifth, output);
    TakeSteps(MatrixColumns<Register<float, Form>, kSpan>(matrix), steps, input, output);
  }
  if constexpr (kHandsOver) {
    const intptr_t done = kPhases * intptr_t{steps};
    Call<FloatBlockRoutine>(filterSuite.saved[kSlot])(input + done, count - kPhases * steps, matrix,
                                                      fourth, fifth, output + done);
  }
}

}  // namespace

template <class Form>
void FilterFloatBlock8(const float* input, uint32_t count, const float* matrix, uintptr_t fourth,
                       uintptr_t fifth, float* output) {
  Slide<8, 191, false, Form>(input, count, matrix, fourth, fifth, output);
}
template <class Form>
void FilterFloatBlock12(const float* input, uint32_t count, const float* matrix, uintptr_t fourth,
                        uintptr_t fifth, float* output) {
  Slide<12, 192, false, Form>(input, count, matrix, fourth, fifth, output);
}
template <class Form>
void FilterFloatBlock16(const float* input, uint32_t count, const float* matrix, uintptr_t fourth,
                        uintptr_t fifth, float* output) {
  Slide<16, 193, true, Form>(input, count, matrix, fourth, fifth, output);
}
template <class Form>
void FilterFloatBlock20(const float* input, uint32_t count, const float* matrix, uintptr_t fourth,
                        uintptr_t fifth, float* output) {
  Slide<20, 194, true, Form>(input, count, matrix, fourth, fifth, output);
}

}  // namespace vantrix
