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
// order, and samples one by one. With screen, overlay and hard light (Mode::kCopiesRows) a
// row of at most 4096 samples behaves as if its operands had been copied before it is written.
//
// Mode is one of modes.h; Form says how many samples are taken at once.
#pragma once

#include "suites/blend/signatures.h"

namespace vantrix {

template <class Mode, class Form>
void AtFullStrength(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t columns,
                    int32_t sourceStride, int32_t destinationStride);
template <class Mode, class Form>
void WithOpacity(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t columns,
                 int32_t sourceStride, int32_t destinationStride, uint32_t opacity);
template <class Mode, class Form>
void UnderMask(const uint8_t* source, uint8_t* destination, const uint8_t* mask, int32_t rows,
               int32_t columns, int32_t sourceStride, int32_t destinationStride,
               int32_t maskStride);
template <class Mode, class Form>
void ColorUnderMask(uint32_t color, uint8_t* destination, const uint8_t* mask, int32_t rows,
                    int32_t columns, int32_t destinationStride, int32_t maskStride);

}  // namespace vantrix
