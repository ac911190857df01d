// Rows that behave as if their operands had been copied before the row is written.
#pragma once

#include <cstring>
#include <utility>

#include "common/rows.h"

namespace vantrix {

// Longer rows are not copied.
inline constexpr int32_t kCopiedSamples = 4096;

// An operand that gives the samples of the current row from a copy.
VX_INLINE Plane Copied(Plane plane, uint8_t* copy, int32_t columns) {
  std::memcpy(copy, plane.row, static_cast<size_t>(columns));
  return {copy, 0};
}
VX_INLINE Weights Copied(Weights weights, uint8_t* copy, int32_t columns) {
  return {Copied(Plane{weights}, copy, columns)};
}
VX_INLINE Constant Copied(Constant constant, uint8_t*, int32_t) { return constant; }

// Applies a rule one sample at a time, to each row from copies of its operands.
struct ApplyToCopiedRows {
  template <class Rule, class... From>
  VX_INLINE void operator()(int32_t rows, int32_t columns, Target to, Rule rule,
                            From... from) const {
    uint8_t copies[sizeof...(From)][kCopiedSamples];
    ForEachRow(
        rows,
        [&](Target target, auto... operands) VX_INLINED {
          [&]<size_t... kIndex>(std::index_sequence<kIndex...>) VX_INLINED {
            ApplyToRow(Singly<uint8_t>{columns}, rule, target,
                       Copied(operands, copies[kIndex], columns)...);
          }(std::index_sequence_for<From...>{});
        },
        to, from...);
  }
};

// As ApplyToRows, but a row of at most 4096 samples behaves as if its operands had been copied
// before it is written. Copies are made only if rows overlap.
template <class Form, class Rule, class... From>
VX_INLINE void ApplyToRowsAsIfCopied(int32_t rows, int32_t columns, Target to, Rule rule,
                                     From... from) {
  if (columns <= kCopiedSamples && (OverlapsInPart(from, to, rows, columns) || ...))
    return DoShared<ApplyToCopiedRows>(rows, columns, to, rule, from...);
  ApplyToRows<Form>(rows, columns, to, rule, from...);
}

}  // namespace vantrix
