// Spreading of marks, suite sele slot 26.
#pragma once

#include "suites/select/signatures.h"

namespace vantrix {

// Sets, in place, the mark (bit 7) of every entry whose neighbour in the row above or below had
// one. The first and the last row have one neighbour. No other bit changes. If rows share entries,
// they are marked in two passes, down and up.
//
// An entry that does not change may be stored, as it is, only if one less than 32 bytes away in its
// row changes; in rows of fewer than 16 entries not even then.
template <class Form>
SpreadMarkRoutine SelectSpreadMark8;

}  // namespace vantrix
