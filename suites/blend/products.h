// Products of two planes, suite blnd slots 74, 75 and 97. The destination's samples are not read;
// it may be one of the operands.
#pragma once

#include "suites/blend/signatures.h"

namespace vantrix {

// d' = a b / 255, rounded to nearest.
template <class Form>
PlanesBlend BlendMultiplyPlanes8;

// d' = 255 - (255 - a) b / 255.
template <class Form>
PlanesBlend BlendInvertMultiplyPlanes8;

// d' = a b / 255, each of a, b and d' replaced by its complement if its flag is not zero.
template <class Form>
InvertBlend BlendMultiplyPlanesInvert8;

}  // namespace vantrix
