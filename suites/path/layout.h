// Where things lie in a fill array.
#pragma once

#include "suites/path/signatures.h"

namespace vantrix {

// Below 1 if there are none. A difference that does not fit in 32 bits is taken in full.
inline int64_t RowCount(const FillArray& array) { return int64_t{array.endRow} - array.firstRow; }

inline uint32_t* FirstRow(FillArray* array) { return reinterpret_cast<uint32_t*>(array + 1); }
inline const uint32_t* FirstRow(const FillArray* array) {
  return reinterpret_cast<const uint32_t*>(array + 1);
}

}  // namespace vantrix
