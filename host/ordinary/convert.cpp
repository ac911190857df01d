#include "host/ordinary/ordinary.h"
#include "suites/convert/signatures.h"

namespace vantrix::host {
namespace {

void Expand(const uint8_t* source, uint16_t* destination, int32_t rows, int32_t width,
            int32_t sourceStride, int32_t destinationStride) {
  for (; rows > 0; --rows) {
    for (int32_t x = 0; x < width; ++x)
      destination[x] = static_cast<uint16_t>((source[x] * 32768 + 127) / 255);
    source += sourceStride;
    destination += destinationStride / 2;
  }
}

}  // namespace

std::span<const Ordinary> OrdinaryConversions() {
  static const Ordinary routines[] = {Use(18, Expand)};
  return routines;
}

}  // namespace vantrix::host
