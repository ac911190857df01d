#include "suites/convert/conversions.h"

#include "common/rows.h"
#include "plugin/suites.h"

namespace vantrix {
namespace {

constexpr uint32_t kFullRange = 0xFFFF, kHostRange = 0x8000;
constexpr int kRescaleSlot = 19;

// (v x 32768 + 32767) / 65535. Of v = 2 k it is k, of 2 k + 1 it is k + 1.
struct FullToHost {
  template <class V>
  VX_INLINE V operator()(V v) const {
    return HalfUp(v);
  }
};

// (v x 65535 + 16384) >> 15 = 2 v + ((16384 - v) >> 15): 2 v, less 1 above 16384. From
// 0x8000 on, where 2 v is clamped to 0xFFFF, values are negative as signed lanes and lose
// nothing.
struct HostToFull {
  template <class V>
  VX_INLINE V operator()(V v) const {
    using Signed = Lanes<int16_t, kLaneCount<V>>;
    return ClampedSum(v, v) + As<V>(As<Signed>(v) > 16384);
  }
};

// A plane of bytes, each taken twice: v and v make 257 v.
struct DoubledBytes {
  const uint8_t* row;
  int32_t stride;

  template <class V>
  VX_LANE V At(intptr_t x) const {
    if constexpr (kLaneCount<V> == 1)
      return V{static_cast<uint16_t>(row[x] * 257)};
    else
      return Doubled(LoadWord(row + x));
  }
  template <class V, int kHalf>
  VX_LANE V Ends(intptr_t count) const {
    constexpr int kSamples = kHalf / 2;
    uint64_t first = 0, last = 0;
    __builtin_memcpy(&first, row, kSamples);
    __builtin_memcpy(&last, row + count - kSamples, kSamples);
    return Doubled(first | last << 8 * kSamples);
  }
  VX_LANE void NextRow() { row += stride; }

 private:
  VX_LANE static Words8 Doubled(uint64_t bytes) {
    const __m128i v = _mm_cvtsi64_si128(static_cast<int64_t>(bytes));
    return As<Words8>(_mm_unpacklo_epi8(v, v));
  }
};

// (v x 32768 + 127) / 255 of v = (257 v + 1) / 2: half of 257 v, rounded up.
struct ExpandDoubled {
  template <class V>
  VX_INLINE V operator()(V doubled) const {
    return HalfUp(doubled);
  }
};

}  // namespace

template <class Form>
uint64_t RescaleWords(uint16_t* samples, uint32_t fromMaximum, uint32_t toMaximum, int32_t rows,
                      int32_t width, int32_t stride) {
  const WordTarget plane{samples, stride & ~1};
  if (fromMaximum == kFullRange && toMaximum == kHostRange)
    BlendRows<Form>(rows, width, plane, FullToHost{});
  else if (fromMaximum == kHostRange && toMaximum == kFullRange)
    BlendRows<Form>(rows, width, plane, HostToFull{});
  else
    return Call<RescaleWordsRoutine>(convertSuite.saved[kRescaleSlot])(
        samples, fromMaximum, toMaximum, rows, width, stride);
  return 0;
}

template <class Form>
void Expand8To16(const uint8_t* source, uint16_t* destination, int32_t rows, int32_t width,
                 int32_t sourceStride, int32_t destinationStride) {
  BlendRows<Form>(rows, width, WordOutput{{destination, destinationStride & ~1}}, ExpandDoubled{},
                  DoubledBytes{source, sourceStride});
}

template RescaleWordsRoutine RescaleWords<OneSample>;
template RescaleWordsRoutine RescaleWords<Sse2>;
template Expand8To16Routine Expand8To16<OneSample>;
template Expand8To16Routine Expand8To16<Sse2>;

}  // namespace vantrix
