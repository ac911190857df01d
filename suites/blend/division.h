// Blends by division, suite blnd slots 66 and 96.
//
// Divide(x, y) is 255 x / y, halves rounded up, if y > x, else 255. While these routines run, the
// calling thread's rounding mode is truncation. On every return the control and status register is
// exactly as it was on entry, and a full memory fence has been issued.
#pragma once

#include "suites/blend/signatures.h"

namespace vantrix {

// d' = 255 - Divide(255 - a, b), a from the first plane (the base), b from the second (the blend).
// The destination's samples are not read; it may be one of the operands.
template <class Form>
PlanesBlend BlendBurnPlanes8;

// p' = Screen(p, q), and then q' = Divide(p' - p, p'), p from the combined plane, q from the share:
// what q added to the combined plane, as a fraction of the new value.
template <class Form>
ShareBlend BlendScreenShare8;

}  // namespace vantrix
