// Spreading of marks, suite sele slot 26.
#pragma once

#include "common/forms.h"
#include "suites/select/signatures.h"

namespace vantrix {

// Bit 7 of an entry is its mark. Sets the mark of every entry whose neighbour in the row
// above or below had one; nothing wraps at the first and last row, and no other bit
// changes. In place. Rows that share entries are marked in two passes, down and up.
// A block of a row is stored only if one of its entries changes; of a row of fewer than 16 entries
// only those that change are.
template <class Form>
void SelectSpreadMark8(uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes);

}  // namespace vantrix
