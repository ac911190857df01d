// Lighten and darken at full strength, suite blnd slots 28 and 29.
//
// Groups that do not change are not written: the memory may be shared with readers that expect no
// store there. The samples of a row up to the destination's first 16-byte boundary may be written
// even if they do not change. From there, in steps of 32 samples, a group of 16 is stored only if
// one of its samples changes. The tail, fewer than 32 samples, may be written like the start.
//
// If the source overlaps the destination, samples are taken
// one at a time in increasing address order, row after row.
#pragma once

#include "suites/blend/signatures.h"

namespace vantrix {

// Mode is modes::Lighten or modes::Darken.
template <class Mode, class Form>
PlaneBlend ChangedBlocks;

}  // namespace vantrix
