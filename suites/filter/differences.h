// Sums of differences of two blocks, suite filt slots 188 and 189.
#pragma once

#include "common/forms.h"
#include "suites/filter/signatures.h"

namespace vantrix {

// The sum of |a - b| over the 128 bytes, at most 32640.
template <class Form>
uint32_t FilterBlockSAD128(const uint8_t* a, const uint8_t* b);

// The sum of |x - y| over the 128 bytes, of x = ~direction & max(a - b, 0) and
// y = direction & max(b - a, 0): a direction of 0 counts where a exceeds b, one of 255 where
// b exceeds a; any other mixes the bits of the two.
template <class Form>
uint32_t FilterBlockSignedSAD128(const uint8_t* a, const uint8_t* b, const uint8_t* direction);

}  // namespace vantrix
