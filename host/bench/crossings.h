// Fill arrays to measure with.
#pragma once

#include "host/exercise/scene.h"
#include "suites/path/signatures.h"

namespace vantrix::host {

// Gives every row `crossings` pending crossings over as many settled entries, whatever its words
// hold. Both are scattered anew in each row, or lie at most one step from those in the row above.
void FillRows(FillArray* array, uint32_t crossings, bool isScattered);

// Folds such an array, of an outline that goes on from row to row. Short rows have as many
// crossings as the shape has columns. A shape with more columns means more rows of 16 crossings.
Exercise FoldOutline;

}  // namespace vantrix::host
