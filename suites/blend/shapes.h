// The shapes of a blend mode: one kernel template for each argument list.
//
//   AtFullStrength   d' = Mode(d, s)
//   WithOpacity      d' = d + k (Mode(d, s) - d) / 255, k one opacity for all samples
//   UnderMask        the same with k from a plane
//   ColorUnderMask   the same with one colour as s
//
// All are rounded to nearest: a weight of 0 keeps d and one of 255 gives Mode(d, s).
//
// An operand plane may be the destination itself, or overlap it in any way: rows are taken in
// order, and samples one at a time. With screen, overlay and hard light (Mode::kCopiesRows) a row
// of at most 4096 samples behaves as if its operands had been copied before it is written.
//
// Mode is one of modes.h.
#pragma once

#include "suites/blend/signatures.h"

namespace vantrix {

template <class Mode, class Form>
PlaneBlend AtFullStrength;
template <class Mode, class Form>
OpacityBlend WithOpacity;
template <class Mode, class Form>
MaskedBlend UnderMask;
template <class Mode, class Form>
ColorMaskedBlend ColorUnderMask;

}  // namespace vantrix
