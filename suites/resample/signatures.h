// The argument lists of the resampling routines.
//
// Counts, widths and strides are signed 32-bit unless declared otherwise. A count or width below 1
// touches no memory. A stride is in bytes from a row to the next, and may be negative. Source and
// destination may overlap: output rows are computed in order, each from its first sample on. Of a
// tap count or a mode only the low 16 bits count; the bits above may hold anything.
#pragma once

#include <cstdint>

namespace vantrix {

// The filters. Output item i (a column or a row) has tapCount taps. The first one is source item
// offsets[i] + 1 - tapCount / 2 (truncated). Its weight is entry phases[i] x tapCount of `weights`;
// those of the other taps follow. A weight of 16384 is 1.
template <class Sample>
using FilterHorizontal = void(const Sample* source, Sample* destination, uint32_t rows,
                              int32_t width, const int32_t* offsets, const uint8_t* phases,
                              int32_t sourceStride, int32_t destinationStride, int32_t tapCount,
                              const int16_t* weights);
template <class Sample>
using FilterVertical = void(const Sample* source, Sample* destination, int32_t rows, int32_t width,
                            const int32_t* offsets, const uint8_t* phases, int32_t sourceStride,
                            int32_t destinationStride, int32_t tapCount, const int16_t* weights);

using BoxAverageRows = void(const uint8_t* source, uint8_t* destination, int32_t outputRows,
                            int32_t width, const int32_t* rowCounts, int32_t sourceStride,
                            int32_t destinationStride);
using BoxAverageArea = void(const uint8_t* source, uint8_t* destination, int32_t outputRows,
                            int32_t outputColumns, int32_t blockWidth, int32_t blockHeight,
                            int32_t sourceStride, int32_t destinationStride);

using ResampleRowsStepped = void(const uint8_t* source, uint8_t* destination, int32_t rows,
                                 int32_t width, const int32_t* rowLengths, int32_t sourceStride,
                                 int32_t destinationStride);

// Positions are 16.16 source coordinates: one for each output sample, or one (x, y) pair.
using SampleAtPositions1D = void(const uint8_t* source, uint8_t* destination, int32_t count,
                                 int32_t sourceLength, const int32_t* positions, int32_t mode);
using SampleAtPositions2D = void(const uint8_t* source, uint8_t* destination, int32_t count,
                                 int32_t sourceWidth, int32_t sourceHeight,
                                 const int32_t* positions, int32_t sourceStride, int32_t mode);

}  // namespace vantrix
