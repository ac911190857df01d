// The horizontal filters one sample at a time.
#pragma once

#include "suites/resample/filter.h"
#include "suites/resample/horizontal.h"

namespace vantrix {

template <class Sample, class Form>
void FilterHorizontalSingly(const Sample* source, Sample* destination, uint32_t rows, int32_t width,
                            const int32_t* offsets, const uint8_t* phases, int32_t sourceStride,
                            int32_t destinationStride, int32_t tapCount, const int16_t* weights) {
  if (width < 1) return;
  const Taps taps{offsets, phases, weights, static_cast<int16_t>(tapCount)};
  // Stores sample(x, read) in every column x of every row; read(k) is the sample of tap k.
  const auto store = [&](auto sample) VX_INLINED {
    constexpr intptr_t kSize = sizeof(Sample);
    for (uint32_t y = 0; y < rows; ++y) {
      const auto from = reinterpret_cast<const uint8_t*>(source) + intptr_t{y} * sourceStride;
      const auto to = reinterpret_cast<uint8_t*>(destination) + intptr_t{y} * destinationStride;
      for (int32_t x = 0; x < width; ++x) {
        const intptr_t first = taps.First(x);
        const auto read = [&](int32_t k) { return Load<Sample>(from + (first + k) * kSize); };
        Store(to + x * kSize, sample(x, read));
      }
    }
  };
  constexpr bool isFloat = Filter<Sample>::kStart == 0;
  if (taps.count == 0 || (taps.count == 1 && !isFloat))
    store([](int32_t, auto read) VX_INLINED { return read(0); });
  else if (taps.count == 1 && isFloat)
    store([&](int32_t x, auto read) VX_INLINED {
      return static_cast<Sample>(read(0) * kWeightScale * weights[taps.Base(x)]);
    });
  else
    WithTapCount(taps.count, [&]<int kTaps>(std::integral_constant<int, kTaps>) VX_INLINED {
      store([&](int32_t x, auto read) VX_INLINED {
        return FilterOne<Sample>(weights + taps.Base(x), kTaps > 0 ? kTaps : taps.count, read);
      });
    });
}

}  // namespace vantrix
