// Sums of differences of two blocks, suite filt slots 188 and 189.
#pragma once

#include "suites/filter/signatures.h"

namespace vantrix {

// Returns the sum of |a - b| over the 128 bytes, at most 32640.
template <class Form>
BlockSADRoutine FilterBlockSAD128;

// Returns the sum of |x - y| over the 128 bytes, with x = ~direction & max(a - b, 0) and
// y = direction & max(b - a, 0). A direction of 0 counts by how much a exceeds b, a direction of
// 255 by how much b exceeds a. Any other direction mixes bits of both.
template <class Form>
BlockSignedSADRoutine FilterBlockSignedSAD128;

}  // namespace vantrix
