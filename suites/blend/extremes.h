// Lighten and darken at full strength, suite blnd slots 28 and 29.
//
// Memory that the source leaves as it is is not written: it may be shared with readers
// that expect no store there. A row's samples up to the destination's 16-byte boundary
// are written whether they change or not; then, in steps of 32, a block of 16 is
// stored only if one of its samples changes; the fewer than 32 that are left are
// written like the first.
//
// A source that overlaps the destination gives the sample-by-sample result in
// increasing address order, row after row.
#pragma once

#include "suites/blend/signatures.h"

namespace vantrix {

// Mode is modes::Lighten or modes::Darken.
template <class Mode, class Form>
void ChangedBlocks(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t columns,
                   int32_t sourceStride, int32_t destinationStride);

}  // namespace vantrix
