// Rows whose operands are taken as they were before the row is written.
#pragma once

#include <cstring>
#include <utility>

#include "common/rows.h"

namespace vantrix {

// A row that fits is copied before it is worked on; longer ones are not.
inline constexpr int32_t kCopiedSamples = 4096;

VX_INLINE Plane CopyRow(Plane plane, uint8_t* copy, int32_t columns) {
  std::memcpy(copy, plane.row, static_cast<size_t>(columns));
  return {copy, 0};
}
VX_INLINE Weights CopyRow(Weights weights, uint8_t* copy, int32_t columns) {
  return {CopyRow(Plane{weights}, copy, columns)};
}
VX_INLINE Constant CopyRow(Constant constant, uint8_t*, int32_t) { return constant; }

// One row after another from copies of its operands, sample by sample. As BlendSingly.
template <class Rule, class... From>
[[gnu::noinline, gnu::used]] void BlendCopiedRows(int32_t rows, int32_t columns, Target to,
                                                  Rule rule, From... from)
#if !defined(__SSSE3__)
{
  uint8_t copies[sizeof...(From)][kCopiedSamples];
  ForEachRow(
      rows,
      [&](Target target, auto... operands) VX_INLINED {
        [&]<size_t... kIndex>(std::index_sequence<kIndex...>) VX_INLINED {
          ApplyToRow(Singly<uint8_t>{columns}, rule, target,
                     CopyRow(operands, copies[kIndex], columns)...);
        }(std::index_sequence_for<From...>{});
      },
      to, from...);
}
#else
    ;
#endif

// BlendRows, but that a row of at most 4096 samples behaves as if its operands had been copied
// before it is written. Copies are made only where rows do overlap.
template <class Form, class Rule, class... From>
VX_INLINE void BlendRowsAsIfCopied(int32_t rows, int32_t columns, Target to, Rule rule,
                                   From... from) {
  if (columns <= kCopiedSamples && (OverlapsInPart(from, to, rows, columns) || ...))
    return BlendCopiedRows(rows, columns, to, rule, from...);
  BlendRows<Form>(rows, columns, to, rule, from...);
}

}  // namespace vantrix
