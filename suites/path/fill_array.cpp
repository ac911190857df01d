#include "suites/path/fill_array.inl"

#include "common/forms.h"

namespace vantrix {

void ApplyFillArrayOperationChecked(FillArray* array, uint32_t operation, uint32_t nonZeroWinding) {
  Apply<Scalar, DebugChecks>(array, operation, nonZeroWinding);
}

}  // namespace vantrix
