// Fill arrays to measure with.
#pragma once

#include "host/exercise/scene.h"
#include "suites/path/signatures.h"

namespace vantrix::host {

// Gives every row so many pending crossings over as many settled entries, whatever is in its
// words. They are scattered anew in each row, or lie as in the row above but for a step or none.
void FillRows(FillArray* array, uint32_t crossings, bool isScattered);

// Folds such an array, of an outline that goes on from row to row. Short rows have as many
// crossings as the shape has columns; more columns stand for more rows of 16.
Exercise FoldOutline;

}  // namespace vantrix::host
