// Blends by division, suite blnd slots 66 and 96.
//
// Divide(x, y) is 255 x / y with halves rounded up where y > x, else 255. While they
// run the calling thread's rounding mode is truncation; on every return the control and
// status register is exactly as it was on entry, and a full memory fence has been issued.
#pragma once

#include "suites/blend/signatures.h"

namespace vantrix {

// d' = 255 - Divide(255 - a, b), a from the base, b from the blend plane. The
// destination's own samples are not read; it may be one of the operands.
template <class Form>
void BlendBurnPlanes8(const uint8_t* base, uint8_t* destination, const uint8_t* blend, int32_t rows,
                      int32_t columns, int32_t baseStride, int32_t destinationStride,
                      int32_t blendStride);

// p' = Screen(p, q), and then q' = Divide(p' - p, p'): what q added to the combined
// plane, as a fraction of the new value.
template <class Form>
void BlendScreenShare8(uint8_t* share, uint8_t* combined, int32_t rows, int32_t columns,
                       int32_t shareStride, int32_t combinedStride);

}  // namespace vantrix
