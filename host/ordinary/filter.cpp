#include <cmath>

#include "host/ordinary/ordinary.h"
#include "host/services.h"
#include "suites/filter/signatures.h"

namespace vantrix::host {
namespace {

int64_t Deviation(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t columns,
                  int32_t sourceStride, int32_t destinationStride) {
  const int64_t answer = Poll();
  for (int32_t y = 0; y < rows; ++y) {
    for (int32_t x = 0; x < columns; ++x) {
      int32_t sum = 0, squares = 0;
      for (int32_t v = -1; v <= 1; ++v)
        for (int32_t u = -1; u <= 1; ++u) {
          const int32_t s = source[intptr_t{v} * sourceStride + x + u];
          sum += s;
          squares += s * s;
        }
      const int32_t quotient = (9 * squares - sum * sum) / 21;
      destination[x] = static_cast<uint8_t>(std::sqrt(static_cast<float>(quotient)));
    }
    source += sourceStride;
    destination += destinationStride;
  }
  return answer;
}

// A kRadius above 0 is a constant radius, so that the loop over the taps is unrolled.
template <int32_t kRadius>
void ConvolveRow(const uint8_t* source, uint8_t* destination, int32_t columns, intptr_t stride,
                 const ConvolutionKernel* kernel) {
  const int32_t radius = kRadius > 0 ? kRadius : kernel->radius;
  uint16_t weights[2 * 64 + 1];
  for (int32_t k = 0; k <= 2 * radius; ++k) weights[k] = static_cast<uint16_t>(kernel->weights[k]);
  for (int32_t x = 0; x < columns; ++x) {
    uint16_t sum = 128;
    for (int32_t k = 0; k <= 2 * radius; ++k)
      sum = static_cast<uint16_t>(sum + source[(k - radius) * stride + x] * weights[k]);
    destination[x] = static_cast<uint8_t>(sum >> 8);
  }
}

void Convolve(const uint8_t* source, uint8_t* destination, uint32_t rows, int32_t columns,
              int32_t sourceStride, int32_t destinationStride, const ConvolutionKernel* kernel) {
  const auto row = kernel->radius == 1   ? ConvolveRow<1>
                   : kernel->radius == 3 ? ConvolveRow<3>
                   : kernel->radius == 8 ? ConvolveRow<8>
                                         : ConvolveRow<0>;
  for (; rows > 0; --rows) {
    row(source, destination, columns, sourceStride, kernel);
    source += sourceStride;
    destination += destinationStride;
  }
}

}  // namespace

std::span<const Ordinary> OrdinaryFilters() {
  static const Ordinary routines[] = {Use(12, Deviation), Use(28, Convolve)};
  return routines;
}

}  // namespace vantrix::host
