#include "suites/path/checks.h"

#include <algorithm>

#include "suites/path/layout.h"

namespace vantrix {

void ValidateFillArray(const FillArray* array, const char* sourceFile, int32_t line) {
  const auto report = [&](const char* message) {
    ReportPath(message, sourceFile, line, kDebugCheck);
  };
  const auto* const start = reinterpret_cast<const uint32_t*>(array);
  const uint32_t* row = FirstRow(array);
  const int64_t rows = RowCount(*array);
  for (int64_t y = 0; y < rows; ++y, row += array->rowStride) {
    const auto pending = static_cast<int32_t>(row[kPendingCount]);
    if (pending > array->rowStride - 2) report("ValidateFillArray: count too large.");
    if (pending < 0) report("ValidateFillArray: count is negative.");
    if (pending % 2 != 0) continue;

    const uint32_t* const end = row + array->rowStride;
    const ptrdiff_t count = std::min<ptrdiff_t>(pending, end - start);
    ptrdiff_t up = 0;
    for (ptrdiff_t i = 1; i <= count; ++i) up += end[-i] & kUpward;
    if (count > 0 && up != count - up) report("ValidateFillArray: Up does not match down.");
  }
  if (PathDebugGuardValue != 0) VerifyPathFillArray(array, sourceFile, line);
}

void VerifyPathFillArray(const FillArray* array, const char* sourceFile, int32_t line) {
  const int64_t rows = std::max<int64_t>(RowCount(*array), 0);
  const uint32_t* const guard = FirstRow(array) + rows * array->rowStride;
  if (guard[0] != PathDebugGuardValue)
    ReportPath("VerifyPathFillArray crossings buffer guard mismatch, possible buffer overwrite",
               sourceFile, line, kDebugCheck);
  if (guard[1 + array->rowStride] != PathDebugGuardValue)
    ReportPath("VerifyPathFillArray calc buffer guard mismatch, possible buffer overwrite",
               sourceFile, line, kDebugCheck);
}

}  // namespace vantrix
