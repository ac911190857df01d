#include "host/exercise/exercises.h"
#include "host/reference/reference.h"
#include "host/reference/samples.h"

namespace vantrix::host {
namespace {

uint8_t Mixed(int d, int r, int weight) {
  return static_cast<uint8_t>(d + Rounded(weight * (r - d), 255));
}

void BlendMasked(const uint8_t* source, uint8_t* destination, const uint8_t* mask, int32_t rows,
                 int32_t columns, int32_t sourceStride, int32_t destinationStride,
                 int32_t maskStride) {
  ForEachSample(rows, columns, [&](int32_t y, int32_t x) {
    uint8_t& d = At(destination, y, x, destinationStride);
    d = Mixed(d, At(source, y, x, sourceStride), At(mask, y, x, maskStride));
  });
}

void BlendColorMasked(uint32_t color, uint8_t* destination, const uint8_t* mask, int32_t rows,
                      int32_t columns, int32_t destinationStride, int32_t maskStride) {
  ForEachSample(rows, columns, [&](int32_t y, int32_t x) {
    uint8_t& d = At(destination, y, x, destinationStride);
    d = Mixed(d, static_cast<uint8_t>(color), At(mask, y, x, maskStride));
  });
}

}  // namespace

std::span<const Reference> BlendReferences() {
  static const Reference references[] = {
      Refer(2, BlendMasked, ExerciseMaskedBlend),
      Refer(3, BlendColorMasked, ExerciseColorMaskedBlend),
  };
  return references;
}

}  // namespace vantrix::host
