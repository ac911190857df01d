// Bodies of conversions.h, for the units that instantiate them.
#pragma once

#include "common/rows.h"
#include "plugin/base/suites.h"
#include "suites/convert/conversions.h"

namespace vantrix {

constexpr uint32_t kFullRange = 0xFFFF, kHostRange = 0x8000;
constexpr int kRescaleSlot = 19;

// (v x 32768 + 32767) / 65535: k for v = 2 k, and k + 1 for v = 2 k + 1.
struct FullToHost {
  template <class V>
  VX_INLINE V operator()(V v) const {
    return HalfUp(v);
  }
};

// (v x 65535 + 16384) >> 15 = 2 v + ((16384 - v) >> 15): 2 v, minus 1 above 16384. From 0x8000 on,
// 2 v is clamped to 0xFFFF; there signed lanes are negative, so nothing is subtracted.
struct HostToFull {
  template <class V>
  VX_INLINE V operator()(V v) const {
    using Signed = Lanes<int16_t, kLaneCount<V>>;
    return ClampedSum(v, v) + As<V>(As<Signed>(v) > 16384);
  }
};

// A plane of bytes as 16-bit lanes, each byte in both halves: 257 v.
struct DoubledBytes {
  const uint8_t* row;
  int32_t stride;

  template <class V>
  VX_LANE V At(Block<V> block) const {
    const uint8_t* const from = row + block.x;
    if constexpr (kIsOneSample<V>)
      return V{static_cast<uint16_t>(*from * 257)};
    else if constexpr (sizeof(V) == 16)
      return Doubled<V>(LoadU64(from));
    else
      return As<V>(Twice(Load<Lanes<uint8_t, kLaneCount<V>>>(from)));
  }
  template <class V, int kBytes>
  VX_LANE V At(Ends<V, kBytes> ends) const {
    constexpr int kSamples = kBytes / 2;
    const uint8_t* const second = row + ends.count - kSamples;
    if constexpr (kBytes == 16) {
      return Join(Doubled<HalfOf<V>>(LoadU64(row)), Doubled<HalfOf<V>>(LoadU64(second)));
    } else {
      uint64_t first = 0, last = 0;
      __builtin_memcpy(&first, row, kSamples);
      __builtin_memcpy(&last, second, kSamples);
      return Doubled<V>(first | last << 8 * kSamples);
    }
  }
  VX_LANE void NextRow() { row += stride; }

 private:
  template <class V>
  VX_LANE static V Doubled(uint64_t bytes) {
    const auto v = As<U8<V>>(U64<V>{bytes, 0});
    return As<V>(InterleaveLow(v, v));
  }
};

VX_INLINE bool OverlapsInPart(DoubledBytes plane, Target16 to, int32_t rows, int32_t columns) {
  return OverlapsInPart(RowPairs{AddressOf(plane.row) - AddressOf(to.row),
                                 int64_t{plane.stride} - to.stride, columns, 2 * int64_t{columns}},
                        rows);
}

// (v x 32768 + 127) / 255 = (257 v + 1) / 2: half of 257 v, rounded up.
struct ExpandDoubled {
  template <class V>
  VX_INLINE V operator()(V doubled) const {
    return HalfUp(doubled);
  }
};

template <class Form>
uint64_t RescaleWords(uint16_t* samples, uint32_t fromMaximum, uint32_t toMaximum, int32_t rows,
                      int32_t width, int32_t stride) {
  const Target16 plane{samples, stride & ~1};
  if (fromMaximum == kFullRange && toMaximum == kHostRange)
    ApplyToRows<Form>(rows, width, plane, FullToHost{});
  else if (fromMaximum == kHostRange && toMaximum == kFullRange)
    ApplyToRows<Form>(rows, width, plane, HostToFull{});
  else
    return Call<RescaleWordsRoutine>(convertSuite.saved[kRescaleSlot])(
        samples, fromMaximum, toMaximum, rows, width, stride);
  return 0;
}

template <class Form>
void Expand8To16(const uint8_t* source, uint16_t* destination, int32_t rows, int32_t width,
                 int32_t sourceStride, int32_t destinationStride) {
  ApplyToRows<Form>(rows, width, Output16{{destination, destinationStride & ~1}}, ExpandDoubled{},
                    DoubledBytes{source, sourceStride});
}

}  // namespace vantrix
