// Output rows that are computed from source rows, column by column.
#pragma once

#include "common/rows.h"

namespace vantrix {

// An operand over a rule: rule.Result<V>(read) returns a register of output samples; read(row)
// loads the samples of a source row in the same columns.
template <class Rule>
struct Computed {
  Rule rule;

  template <class Place>
  VX_INLINE auto At(Place place) const {
    return rule.template Result<typename Place::Register>(
        [=](const uint8_t* row) VX_INLINED { return place.LoadFrom(row); });
  }
  VX_INLINE void NextRow() { rule.NextRow(); }
};

// rule.SourceOf(rows, columns) is the area of the source from which they are computed.
template <class Rule>
VX_INLINE bool OverlapsInPart(const Computed<Rule>& operand, Target to, int32_t rows,
                              int32_t columns) {
  return Overlap(operand.rule.SourceOf(rows, columns), {to.row, to.stride, rows, columns});
}

// The rule that returns its operand.
struct AsItIs {
  template <class V>
  VX_INLINE V operator()(V sample) const {
    return sample;
  }
};

// Writes the samples of an operand to one row, by a walk of common/blocks.h.
template <class Walk, class From>
VX_INLINE void WriteRow(Walk walk, uint8_t* row, From from) {
  ApplyToRow(walk, AsItIs{}, Output{{row, 0}}, from);
}

}  // namespace vantrix
