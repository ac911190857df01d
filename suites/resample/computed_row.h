// An output row that is computed from other rows, column by column.
#pragma once

#include "common/rows.h"

namespace vantrix {

// An operand of the row driver over a rule: rule.Result<V>(read) gives a register of
// output samples, where read(row) gives those of a source row in the same columns.
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

// Rules tell the area of the source that so many rows are computed from.
template <class Rule>
VX_INLINE bool OverlapsInPart(const Computed<Rule>& operand, Target to, int32_t rows,
                              int32_t columns) {
  return Overlap(operand.rule.SourceOf(rows, columns), {to.row, to.stride, rows, columns});
}

struct AsItIs {
  template <class V>
  VX_INLINE V operator()(V sample) const {
    return sample;
  }
};

// The samples of an operand, in one row that is walked as WithBlocks says.
template <class Walk, class Operand>
VX_INLINE void WriteRow(Walk walk, uint8_t* row, Operand operand) {
  ApplyToRow(walk, AsItIs{}, Output{{row, 0}}, operand);
}

}  // namespace vantrix
