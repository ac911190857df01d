#include "suites/resample/output_rows.h"

#include "plugin/suites.h"
#include "suites/memory/signatures.h"

namespace vantrix {

void CopyRow(const uint8_t* source, uint8_t* destination, int64_t bytes) {
  constexpr int64_t kPiece = 1 << 30;
  const auto copy = Call<CopyBytesRoutine>(memorySuite.live[0]);
  for (; bytes > 0; bytes -= kPiece, source += kPiece, destination += kPiece)
    copy(source, destination, static_cast<int32_t>(bytes < kPiece ? bytes : kPiece));
}

}  // namespace vantrix
