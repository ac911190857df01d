// One kernel template for each argument list of the blends.
//
// A mode is a rule for a full-strength sample, r = Mode(d, s). A shape says where s
// comes from and how far d moves towards r:
//
//   UnderMask        source plane, by a plane of weights
//   ColorUnderMask   one colour, by a plane of weights
//
// A weight of 0 keeps d and 255 gives r. A source or mask may be the destination
// itself; at an offset, the overlap has no defined result.
//
// Form says how many samples are taken at once; see common/forms.h.
#pragma once

#include "suites/blend/signatures.h"

namespace vantrix {

template <class Mode, class Form>
void UnderMask(const uint8_t* source, uint8_t* destination, const uint8_t* mask, int32_t rows,
               int32_t columns, int32_t sourceStride, int32_t destinationStride,
               int32_t maskStride);
template <class Mode, class Form>
void ColorUnderMask(uint32_t color, uint8_t* destination, const uint8_t* mask, int32_t rows,
                    int32_t columns, int32_t destinationStride, int32_t maskStride);

}  // namespace vantrix
