// The argument lists of the resampling routines.
//
// Counts, widths and strides are signed 32-bit but where they say otherwise; a count or
// width below 1 touches no memory. A stride is in bytes from a row to the next and may
// be negative. Source and destination may overlap: output rows are formed in order, and
// each from its first sample on. Of a tap count or a mode the low 16 bits count, whatever
// stands above.
#pragma once

#include <cstdint>

namespace vantrix {

// The filters. Output item i (a column, or a row) has tapCount taps: the first is
// tapCount / 2 (truncated) - 1 source items before item offsets[i], and the weights
// are entries phases[i] x tapCount and on. 16384 stands for 1.
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

// Positions are 16.16 source coordinates, one or an (x, y) pair for each output sample.
using SampleAtPositions1D = void(const uint8_t* source, uint8_t* destination, int32_t count,
                                 int32_t sourceLength, const int32_t* positions, int32_t mode);
using SampleAtPositions2D = void(const uint8_t* source, uint8_t* destination, int32_t count,
                                 int32_t sourceWidth, int32_t sourceHeight,
                                 const int32_t* positions, int32_t sourceStride, int32_t mode);

}  // namespace vantrix
