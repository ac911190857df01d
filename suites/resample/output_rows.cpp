#include "suites/resample/output_rows.h"

#include <climits>

#include "plugin/base/suites.h"
#include "suites/memory/signatures.h"

namespace vantrix {

template <class Sample>
bool FilterOverlapping(uint8_t* row, const uint8_t* first, intptr_t stride, const int16_t* weights,
                       int32_t count, int32_t width) {
  constexpr intptr_t kSize = sizeof(Sample);
  const int64_t bytes = width * kSize;
  if (count < 1 || !Overlap({first, stride, count, bytes}, {row, stride, 1, bytes})) return false;
  for (int32_t x = 0; x < width; ++x)
    Store(row + x * kSize, FilterOne<Sample>(weights, count, [=](int32_t k) {
            return Load<Sample>(first + k * stride + x * kSize);
          }));
  return true;
}
template bool FilterOverlapping<uint8_t>(uint8_t*, const uint8_t*, intptr_t, const int16_t*,
                                         int32_t, int32_t);
template bool FilterOverlapping<float>(uint8_t*, const uint8_t*, intptr_t, const int16_t*, int32_t,
                                       int32_t);

void CopyRow(const uint8_t* source, uint8_t* destination, int64_t bytes) {
  constexpr int64_t kPiece = INT_MAX & ~int64_t{15};
  const auto copy = Call<CopyBytesRoutine>(memorySuite.live[MemorySlot::kCopyBytes]);
  for (; bytes > INT_MAX; bytes -= kPiece, source += kPiece, destination += kPiece)
    copy(source, destination, static_cast<int32_t>(kPiece));
  copy(source, destination, static_cast<int32_t>(bytes));
}

}  // namespace vantrix
