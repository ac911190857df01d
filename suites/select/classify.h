// Classification of masks, suite sele slots 33 and 75. A mask narrower than a register goes
// to the host's own routine for the slot, and its answer is returned.
//
// Both answer MaskClass::kMixed after the first row after which nothing else can come.
#pragma once

#include "common/forms.h"
#include "suites/select/signatures.h"

namespace vantrix {

// The class of the entries; 0 is empty, 128 half, 255 full. Without rows: MaskClass::kEmpty.
template <class Form>
int32_t SelectClassify8(const uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes);

// 32768 is full, 16384 half; rowBytes is rounded down to an even number.
//
// Entries are folded by bitwise or and and into eight lanes: a row's first eight entries,
// if it does not start at a 16-byte boundary, then groups of eight from the first boundary
// on, then its last eight entries, if any are left; the place in its group is an entry's
// lane. A lane is below half when it is, as a signed number: one in which any entry has bit
// 15 set counts as below, so a mask whose every lane mixes 0 and 32768 is MaskClass::kBelowHalf.
// Hosts rely on it.
template <class Form>
int32_t SelectClassify16(const uint16_t* data, int32_t rows, int32_t width, int32_t rowBytes);

}  // namespace vantrix
