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

template <class Sample>
void FilterFarRows(FilterVertical<Sample>* kernel, const Sample* source, Sample* destination,
                   int32_t count, int32_t width, Taps taps, int32_t sourceStride,
                   int32_t destinationStride) {
  // Bytes of a piece: the calls cost little, and the processor does not yet wait for prefetches.
  constexpr int32_t kPieceBytes = 1024;
  constexpr int32_t kSize = sizeof(Sample), kPiece = kPieceBytes / kSize;
  const intptr_t fromStride = sourceStride / kSize * kSize;
  const intptr_t toStride = destinationStride / kSize * kSize;
  const auto from = reinterpret_cast<const uint8_t*>(source);
  auto row = reinterpret_cast<uint8_t*>(destination);
  for (int32_t i = 0; i < count; ++i, row += toStride) {
    const int32_t next = i + 1 < count ? i + 1 : i;
    const intptr_t step = taps.First(next) - taps.First(i);
    const auto newRows = static_cast<int32_t>(step < 0 || step > taps.count ? taps.count : step);
    const uint8_t* const newFirst = from + (taps.First(next) + taps.count - newRows) * fromStride;
    for (int32_t columns, x = 0; x < width; x += columns) {
      columns = width - x < kPiece ? width - x : kPiece;
      const intptr_t byte = intptr_t{x} * kSize, bytes = columns * kSize;
      PrefetchRows(newFirst + byte, fromStride, newRows, bytes);
      PrefetchRows(row + toStride + byte, 0, next - i, bytes);
      kernel(source + x, reinterpret_cast<Sample*>(row + byte), 1, columns, taps.offsets + i,
             taps.phases + i, sourceStride, destinationStride, taps.count, taps.weights);
    }
  }
}
template decltype(FilterFarRows<uint8_t>) FilterFarRows<uint8_t>;
template decltype(FilterFarRows<float>) FilterFarRows<float>;

void CopyRow(const uint8_t* source, uint8_t* destination, int64_t bytes) {
  constexpr int64_t kPiece = INT_MAX & ~int64_t{15};
  const auto copy = Call<CopyBytesRoutine>(memorySuite.live[MemorySlot::kCopyBytes]);
  for (; bytes > INT_MAX; bytes -= kPiece, source += kPiece, destination += kPiece)
    copy(source, destination, static_cast<int32_t>(kPiece));
  copy(source, destination, static_cast<int32_t>(bytes));
}

}  // namespace vantrix
