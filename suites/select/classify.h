// Classification of masks, suite sele slots 33 and 75. A mask narrower than 16 bytes goes to the
// host's own routine for the slot, whose result is returned.
//
// Both return MaskClass::kMixed after the first row that leaves no other class possible.
#pragma once

#include "suites/select/signatures.h"

namespace vantrix {

// The class of the entries: 0 is empty, 128 half, 255 full. Without rows it is MaskClass::kEmpty.
template <class Form>
Classify8Routine SelectClassify8;

// The same for 16 bits: 0 is empty, 16384 half, 32768 full.
// rowBytes is rounded down to an even number.
//
// Entries are combined by bitwise or and by bitwise and in eight lanes. Each row gives
//   - its first eight entries, if it does not start at a 16-byte boundary,
//   - groups of eight entries from the first boundary on,
//   - its last eight entries, if any are left.
// An entry's lane is its position among the eight. A lane is below half if it is so as a signed
// number. So a lane counts as below if any of its entries has bit 15 set, and a mask in which every
// lane has both 0 and 32768 is MaskClass::kBelowHalf. Hosts rely on that.
template <class Form>
Classify16Routine SelectClassify16;

}  // namespace vantrix
