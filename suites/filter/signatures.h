// The argument lists of the filters.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantrix {

// Blocks are 128 consecutive bytes, aligned to 16. The sum is in the low 16 bits of the result.
using BlockSADRoutine = uint32_t(const uint8_t* a, const uint8_t* b);
using BlockSignedSADRoutine = uint32_t(const uint8_t* a, const uint8_t* b,
                                       const uint8_t* direction);

// count is in floats. The fourth and the fifth argument mean something only to the host.
using FloatBlockRoutine = void(const float* input, uint32_t count, const float* matrix,
                               uintptr_t fourth, uintptr_t fifth, float* output);

// The host's record of a window: 2 radius + 1 weights. Only their low 16 bits count.
struct ConvolutionKernel {
  uint8_t hosts[80];  // not read
  int32_t radius;
  uint32_t weights[1];
};
static_assert(offsetof(ConvolutionKernel, radius) == 80 &&
              offsetof(ConvolutionKernel, weights) == 84);

// rows is unsigned, columns signed; strides are in bytes and may be negative.
using ConvolveRoutine = void(const uint8_t* source, uint8_t* destination, uint32_t rows,
                             int32_t columns, int32_t sourceStride, int32_t destinationStride,
                             const ConvolutionKernel* kernel);

using DeviationRoutine = int64_t(const uint8_t* source, uint8_t* destination, int32_t rows,
                                 int32_t columns, int32_t sourceStride, int32_t destinationStride);

}  // namespace vantrix
