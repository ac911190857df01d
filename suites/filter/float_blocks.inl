// Bodies of float_blocks.h, for the units that instantiate them.
#pragma once

#include "common/lane_ops.h"
#include "plugin/suites.h"
#include "suites/filter/float_blocks.h"

namespace vantrix {
namespace {

constexpr int kPhases = 4;

// Four outputs, each the terms of its row one after another.
template <int kSpan>
struct PlainStep {
  const float* matrix;

  VX_INLINE explicit PlainStep(const float* coefficients) : matrix(coefficients) {}
  VX_INLINE void operator()(const float* input, float* output) const {
    for (int r = 0; r < kPhases; ++r) {
      float sum = matrix[r * kSpan] * input[0];
      for (int j = 1; j < kSpan; ++j) sum += matrix[r * kSpan + j] * input[j];
      output[r] = sum;
    }
  }
};

// The four outputs as four lanes, which add in the same order.
template <int kSpan>
struct LaneStep {
  Floats4 columns[kSpan];  // of the matrix

  VX_INLINE explicit LaneStep(const float* matrix) {
#pragma GCC unroll 20
    for (int j = 0; j < kSpan; ++j)
      columns[j] =
          Floats4{matrix[j], matrix[kSpan + j], matrix[2 * kSpan + j], matrix[3 * kSpan + j]};
  }
  VX_INLINE void operator()(const float* input, float* output) const {
    Floats4 sum = columns[0] * Spread<0>(Load<Floats4>(input));
#pragma GCC unroll 5
    for (int j = 0; j < kSpan; j += 4) {
      const auto four = Load<Floats4>(input + j);
      if (j > 0) sum += columns[j] * Spread<0>(four);
      sum += columns[j + 1] * Spread<1>(four);
      sum += columns[j + 2] * Spread<2>(four);
      sum += columns[j + 3] * Spread<3>(four);
    }
    Store(output, sum);
  }
};

// kHost: the slot whose host's routine takes the rest of the run; 0 for none.
template <int kSpan, int kHost, class Form>
VX_INLINE void Slide(const float* input, uint32_t count, const float* matrix, uintptr_t fourth,
                     uintptr_t fifth, float* output) {
  if (count < kSpan) return;
  const uint32_t inSpans = kHost ? count / kSpan * kSpan : count;
  const uint32_t steps = (inSpans - kSpan) / kPhases + 1;
  const std::conditional_t<Form::kBytes == 1, PlainStep<kSpan>, LaneStep<kSpan>> step(matrix);
  for (uint32_t k = 0; k < steps; ++k, input += kPhases, output += kPhases) step(input, output);
  if constexpr (kHost != 0)
    Call<FloatBlockRoutine>(filterSuite.saved[kHost])(input, count - kPhases * steps, matrix,
                                                      fourth, fifth, output);
}

}  // namespace

template <class Form>
void FilterFloatBlock8(const float* input, uint32_t count, const float* matrix, uintptr_t fourth,
                       uintptr_t fifth, float* output) {
  Slide<8, 0, Form>(input, count, matrix, fourth, fifth, output);
}
template <class Form>
void FilterFloatBlock12(const float* input, uint32_t count, const float* matrix, uintptr_t fourth,
                        uintptr_t fifth, float* output) {
  Slide<12, 0, Form>(input, count, matrix, fourth, fifth, output);
}
template <class Form>
void FilterFloatBlock16(const float* input, uint32_t count, const float* matrix, uintptr_t fourth,
                        uintptr_t fifth, float* output) {
  Slide<16, 193, Form>(input, count, matrix, fourth, fifth, output);
}
template <class Form>
void FilterFloatBlock20(const float* input, uint32_t count, const float* matrix, uintptr_t fourth,
                        uintptr_t fifth, float* output) {
  Slide<20, 194, Form>(input, count, matrix, fourth, fifth, output);
}

}  // namespace vantrix
