#include "host/exercise/exercises.h"
#include "host/reference/reference.h"
#include "host/reference/samples.h"
#include "suites/convert/signatures.h"

namespace vantrix::host {
namespace {

uint16_t Rescaled(uint64_t v, uint64_t from, uint64_t to) {
  if (from == 0x8000 && to == 0xFFFF)
    return static_cast<uint16_t>(v > 0x7FFF ? 0xFFFF : (v * 65535 + 16384) >> 15);
  const uint64_t rescaled = (v * to + from / 2) / from;
  return static_cast<uint16_t>(rescaled > 0xFFFF ? 0xFFFF : rescaled);
}

uint64_t RescaleWords(uint16_t* samples, uint32_t fromMaximum, uint32_t toMaximum, int32_t rows,
                      int32_t width, int32_t stride) {
  if (fromMaximum == 0) return 0;
  ForEachSample(rows, width, [&](int32_t y, int32_t x) {
    uint16_t& v = At(samples, y, x, stride & ~1);
    v = Rescaled(v, fromMaximum, toMaximum);
  });
  return 0;
}

void Expand8To16(const uint8_t* source, uint16_t* destination, int32_t rows, int32_t width,
                 int32_t sourceStride, int32_t destinationStride) {
  ForEachSample(rows, width, [&](int32_t y, int32_t x) {
    At(destination, y, x, destinationStride & ~1) =
        static_cast<uint16_t>((At(source, y, x, sourceStride) * 32768 + 127) / 255);
  });
}

}  // namespace

std::span<const Reference> ConvertReferences() {
  static const Reference references[] = {
      Refer(18, Expand8To16, ExerciseExpand8To16),
      Refer(19, RescaleWords, ExerciseRescaleWords),
  };
  return references;
}

}  // namespace vantrix::host
