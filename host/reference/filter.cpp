#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "host/exercise/exercises.h"
#include "host/reference/reference.h"
#include "host/reference/samples.h"
#include "host/services.h"
#include "suites/filter/signatures.h"

namespace vantrix::host {
namespace {

int64_t LocalDeviation(const uint8_t* source, uint8_t* destination, int32_t rows, int32_t columns,
                       int32_t sourceStride, int32_t destinationStride) {
  const int64_t answer = Poll();
  // Each source column as it was when the window reached it, from the column left of the plane.
  struct Column {
    int sum, squares;
  };
  std::vector<Column> all(static_cast<size_t>(std::max(columns, 0)) + 2);
  Column* const column = all.data() + 1;
  for (int32_t y = 0; y < rows; ++y) {
    const auto reach = [&](int32_t x) {
      column[x] = {0, 0};
      for (int v = -1; v <= 1; ++v) {
        const int s = At(source, y + v, x, sourceStride);
        column[x].sum += s;
        column[x].squares += s * s;
      }
    };
    if (columns < 1) break;
    reach(-1);
    reach(0);
    for (int32_t x = 0; x < columns; ++x) {
      reach(x + 1);
      int sum = 0, squares = 0;
      for (int32_t u = x - 1; u <= x + 1; ++u) {
        sum += column[u].sum;
        squares += column[u].squares;
      }
      const int quotient = (9 * squares - sum * sum) / 21;
      At(destination, y, x, destinationStride) = static_cast<uint8_t>(std::sqrt(quotient));
    }
  }
  return answer;
}

void ConvolveVertical(const uint8_t* source, uint8_t* destination, uint32_t rows, int32_t columns,
                      int32_t sourceStride, int32_t destinationStride,
                      const ConvolutionKernel* kernel) {
  const int32_t radius = kernel->radius;
  if (columns > 4096) {
    ConvolveVertical(source, destination, rows, 4096, sourceStride, destinationStride, kernel);
    return ConvolveVertical(source + 4096, destination + 4096, rows, columns - 4096, sourceStride,
                            destinationStride, kernel);
  }
  if (columns < 1) return;
  std::vector<uint8_t> d(static_cast<size_t>(columns));
  for (uint32_t y = 0; y < rows; ++y) {
    const uint8_t* const centre = source + static_cast<intptr_t>(y) * sourceStride;
    for (int32_t x = 0; x < columns; ++x) {
      uint16_t sum = 128;
      for (int32_t k = 0; k <= 2 * radius; ++k) {
        const uint32_t s = centre[intptr_t{k - radius} * sourceStride + x];
        sum = static_cast<uint16_t>(sum + s * static_cast<uint16_t>(kernel->weights[k]));
      }
      d[static_cast<size_t>(x)] = static_cast<uint8_t>(sum >> 8);
    }
    std::ranges::copy(d, destination + static_cast<intptr_t>(y) * destinationStride);
  }
}

uint32_t BlockSAD(const uint8_t* a, const uint8_t* b) {
  uint32_t sum = 0;
  for (int i = 0; i < 128; ++i) sum += static_cast<uint32_t>(std::abs(a[i] - b[i]));
  return sum;
}

uint32_t BlockSignedSAD(const uint8_t* a, const uint8_t* b, const uint8_t* direction) {
  uint32_t sum = 0;
  for (int i = 0; i < 128; ++i) {
    const int up = a[i] > b[i] ? a[i] - b[i] : 0, down = b[i] > a[i] ? b[i] - a[i] : 0;
    sum += static_cast<uint32_t>(std::abs((~direction[i] & up) - (direction[i] & down)));
  }
  return sum;
}

// Takes steps while a whole span of inputs is left.
template <uint32_t kSpan>
void FloatBlock(const float* input, uint32_t count, const float* matrix, uintptr_t, uintptr_t,
                float* output) {
  for (uint32_t first = 0; first + kSpan <= count; first += 4) {
    for (uint32_t r = 0; r < 4; ++r) {
      float sum = matrix[r * kSpan] * input[first];
      for (uint32_t j = 1; j < kSpan; ++j) {
        const float term = matrix[r * kSpan + j] * input[first + j];
        sum = sum + term;
      }
      output[first + r] = sum;
    }
  }
}

}  // namespace

std::span<const Reference> FilterReferences() {
  static const Reference references[] = {
      Refer(12, LocalDeviation, ExerciseDeviation),
      Refer(28, ConvolveVertical, ExerciseConvolve),
      Refer(188, BlockSAD, ExerciseBlockSAD),
      Refer(189, BlockSignedSAD, ExerciseBlockSignedSAD),
      Refer(191, FloatBlock<8>, ExerciseFloatBlock<8>),
      Refer(192, FloatBlock<12>, ExerciseFloatBlock<12>),
      Refer(193, FloatBlock<16>, ExerciseFloatBlock<16>),
      Refer(194, FloatBlock<20>, ExerciseFloatBlock<20>),
  };
  return references;
}

}  // namespace vantrix::host
