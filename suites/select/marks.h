// Spreading of marks, suite sele slot 26.
#pragma once

#include "suites/select/signatures.h"

namespace vantrix {

// Sets, in place, the mark (bit 7) of every entry whose neighbour in the row above or below had
// one. The first and the last row have one neighbour. No other bit changes. If rows share entries,
// they are marked in two passes, down and up.
//
// A block of a row is stored only if one of its entries changes. In rows of fewer than 16 entries
// only entries that change are stored.
template <class Form>
SpreadMarkRoutine SelectSpreadMark8;

}  // namespace vantrix
