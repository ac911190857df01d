// Operands whose rows overlap the target's.
#pragma once

#include <cstring>
#include <utility>

#include "common/rows.h"

namespace vantrix {

// A row that fits is copied before it is worked on; longer ones are not.
inline constexpr int32_t kCopiedSamples = 4096;

// Whether in some row the operand's samples overlap the target's without being them.
bool OverlapsInPart(Plane plane, Target to, int32_t rows, int32_t columns);
VX_INLINE bool OverlapsInPart(Constant, Target, int32_t, int32_t) { return false; }

VX_INLINE Plane CopyRow(Plane plane, uint8_t* copy, int32_t columns) {
  std::memcpy(copy, plane.row, static_cast<size_t>(columns));
  return {copy, 0};
}
VX_INLINE Weights CopyRow(Weights weights, uint8_t* copy, int32_t columns) {
  return {CopyRow(Plane{weights}, copy, columns)};
}
VX_INLINE Constant CopyRow(Constant constant, uint8_t*, int32_t) { return constant; }

// One row after another from copies of its operands, sample by sample: rare.
template <class Form, class Rule, class... From>
[[gnu::noinline]] void BlendCopiedRows(int32_t rows, int32_t columns, Target to, Rule rule,
                                       From... from) {
  uint8_t copies[sizeof...(From)][kCopiedSamples];
  ForEachRow(
      rows,
      [&](Target target, auto... operands) VX_INLINED {
        [&]<size_t... kIndex>(std::index_sequence<kIndex...>) VX_INLINED {
          BlendRows<Scalar>(1, columns, target, rule,
                            CopyRow(operands, copies[kIndex], columns)...);
        }(std::index_sequence_for<From...>{});
      },
      to, from...);
}

// BlendRows for operands that may overlap the target in any way: a row of at most
// 4096 samples behaves as if its operands had been copied before it is written. Copies
// are made only where rows do overlap.
template <class Form, class Rule, class... From>
VX_INLINE void BlendRowsAsIfCopied(int32_t rows, int32_t columns, Target to, Rule rule,
                                   From... from) {
  if (columns <= kCopiedSamples && (OverlapsInPart(from, to, rows, columns) || ...))
    return BlendCopiedRows<Form>(rows, columns, to, rule, from...);
  BlendRows<Form>(rows, columns, to, rule, from...);
}

}  // namespace vantrix
