#include <vector>

#include "host/exercise/exercises.h"
#include "host/reference/reference.h"
#include "host/reference/samples.h"
#include "suites/memory/signatures.h"

namespace vantrix::host {
namespace {

// Copies forwards or backwards, so that no byte is written before it is read.
void CopyBytes(const uint8_t* source, uint8_t* destination, int32_t bytes) {
  const bool isBehind =
      reinterpret_cast<uintptr_t>(destination) > reinterpret_cast<uintptr_t>(source);
  for (int32_t i = 0; i < bytes; ++i) {
    const int32_t at = isBehind ? bytes - 1 - i : i;
    destination[at] = source[at];
  }
}

void CopyRect(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t rowBytes,
              int32_t sourceStride, int32_t destinationStride) {
  if (source == destination) return;
  for (int32_t y = 0; y < rows; ++y)
    CopyBytes(source + intptr_t{y} * sourceStride, destination + intptr_t{y} * destinationStride,
              rowBytes);
}

void FillBytes(uint8_t* destination, int32_t bytes, uint32_t value) {
  for (int32_t i = 0; i < bytes; ++i) destination[i] = static_cast<uint8_t>(value);
}

void FillRect(uint8_t* destination, int32_t rows, int32_t width, int32_t stride, uint32_t value) {
  ForEachSample(rows, width, [&](int32_t y, int32_t x) {
    At(destination, y, x, stride) = static_cast<uint8_t>(value);
  });
}

// Writes one byte at a time, since the values need not lie at even addresses.
void FillWords(uint16_t* destination, int32_t count, uint32_t value) {
  const auto bytes = reinterpret_cast<uint8_t*>(destination);
  for (int32_t i = 0; i < count; ++i) {
    bytes[2 * i] = static_cast<uint8_t>(value);
    bytes[2 * i + 1] = static_cast<uint8_t>(value >> 8);
  }
}

void FillWordRect(uint16_t* destination, int32_t rows, int32_t width, int32_t stride,
                  uint32_t value) {
  const auto bytes = reinterpret_cast<uint8_t*>(destination);
  for (int32_t y = 0; y < rows; ++y)
    FillWords(reinterpret_cast<uint16_t*>(bytes + intptr_t{y} * stride), width, value);
}

uint32_t BytesAllEqual(const uint8_t* pointer, int32_t bytes, uint32_t value) {
  for (int32_t i = 0; i < bytes; ++i)
    if (pointer[i] != static_cast<uint8_t>(value)) return 0;
  return 1;
}

uint32_t RectAllEqual(const uint8_t* pointer, int32_t rows, int32_t width, int32_t stride,
                      uint32_t value) {
  for (int32_t y = 0; y < rows; ++y)
    if (!BytesAllEqual(pointer + intptr_t{y} * stride, width, value)) return 0;
  return 1;
}

}  // namespace

std::span<const Reference> MemoryReferences() {
  static const Reference references[] = {
      Refer(0, CopyBytes, ExerciseCopyBytes),
      Refer(1, CopyRect, ExerciseCopyRect),
      Refer(3, FillBytes, ExerciseFillBytes),
      Refer(4, FillRect, ExerciseFillRect),
      Refer(17, BytesAllEqual, ExerciseBytesAllEqual),
      Refer(18, RectAllEqual, ExerciseRectAllEqual),
      Refer(65, FillWords, ExerciseFillWords),
      Refer(66, FillWordRect, ExerciseFillWordRect),
  };
  return references;
}

}  // namespace vantrix::host
