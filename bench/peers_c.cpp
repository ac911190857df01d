// The C library's routines for runs of bytes.
#include <cstring>

#include "bench/bench.h"
#include "suites/memory/signatures.h"

namespace vantrix::bench {
namespace {

void Copy(const uint8_t* source, uint8_t* destination, int32_t bytes) {
  std::memcpy(destination, source, static_cast<size_t>(bytes));
}
void CopyRows(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t rowBytes,
              int32_t sourceStride, int32_t destinationStride) {
  for (; rows > 0; --rows, source += sourceStride, destination += destinationStride)
    Copy(source, destination, rowBytes);
}
void Fill(uint8_t* destination, int32_t bytes, uint32_t value) {
  std::memset(destination, static_cast<uint8_t>(value), static_cast<size_t>(bytes));
}
void FillRows(uint8_t* destination, int32_t rows, int32_t width, int32_t stride, uint32_t value) {
  for (; rows > 0; --rows, destination += stride) Fill(destination, width, value);
}
// A run has one value throughout if it equals the run that starts one byte further on.
uint32_t AllEqual(const uint8_t* pointer, int32_t bytes, uint32_t value) {
  return pointer[0] == static_cast<uint8_t>(value) &&
         std::memcmp(pointer, pointer + 1, static_cast<size_t>(bytes) - 1) == 0;
}

[[maybe_unused]] const bool kCompete[] = {
    Compete("C library", kMemory, {0}, Copy),      Compete("C library", kMemory, {1}, CopyRows),
    Compete("C library", kMemory, {3}, Fill),      Compete("C library", kMemory, {4}, FillRows),
    Compete("C library", kMemory, {17}, AllEqual),
};

}  // namespace
}  // namespace vantrix::bench
