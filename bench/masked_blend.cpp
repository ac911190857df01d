// The masked normal blend by hand: what the kernels of slot 2 are measured against.
#include <tmmintrin.h>

#include "bench/bench.h"
#include "suites/blend/signatures.h"

namespace vantrix::bench {
namespace {

using V = __m128i;

V LoadBlock(const uint8_t* from) { return _mm_loadu_si128(reinterpret_cast<const V*>(from)); }
void StoreBlock(uint8_t* to, V v) { _mm_storeu_si128(reinterpret_cast<V*>(to), v); }
V By255(V t) { return _mm_mulhi_epu16(_mm_add_epi16(t, _mm_set1_epi16(128)), _mm_set1_epi16(257)); }

V MixSse2(V d, V s, V m) {
  const V zero = _mm_setzero_si128(), keep = _mm_xor_si128(m, _mm_set1_epi8(-1));
  const V low =
      _mm_add_epi16(_mm_mullo_epi16(_mm_unpacklo_epi8(d, zero), _mm_unpacklo_epi8(keep, zero)),
                    _mm_mullo_epi16(_mm_unpacklo_epi8(s, zero), _mm_unpacklo_epi8(m, zero)));
  const V high =
      _mm_add_epi16(_mm_mullo_epi16(_mm_unpackhi_epi8(d, zero), _mm_unpackhi_epi8(keep, zero)),
                    _mm_mullo_epi16(_mm_unpackhi_epi8(s, zero), _mm_unpackhi_epi8(m, zero)));
  return _mm_packus_epi16(By255(low), By255(high));
}

V MixSsse3(V d, V s, V m) {
  const V keep = _mm_xor_si128(m, _mm_set1_epi8(-1)), middle = _mm_set1_epi8(-128);
  const V sd = _mm_xor_si128(d, middle), ss = _mm_xor_si128(s, middle);
  const V bias = _mm_set1_epi16(255 * 128);
  const V low = _mm_maddubs_epi16(_mm_unpacklo_epi8(m, keep), _mm_unpacklo_epi8(ss, sd));
  const V high = _mm_maddubs_epi16(_mm_unpackhi_epi8(m, keep), _mm_unpackhi_epi8(ss, sd));
  return _mm_packus_epi16(By255(_mm_add_epi16(low, bias)), By255(_mm_add_epi16(high, bias)));
}

// Whole blocks, the last one reaching back; shorter rows sample by sample.
template <V (*kMix)(V, V, V)>
void ByHand(const uint8_t* s, uint8_t* d, const uint8_t* m, int32_t rows, int32_t columns,
            int32_t sourceStride, int32_t destinationStride, int32_t maskStride) {
  for (; rows > 0; --rows) {
    if (columns >= 16) {
      const int32_t end = columns - 16;
      const V last = kMix(LoadBlock(d + end), LoadBlock(s + end), LoadBlock(m + end));
      for (int32_t x = 0; x < end; x += 16)
        StoreBlock(d + x, kMix(LoadBlock(d + x), LoadBlock(s + x), LoadBlock(m + x)));
      StoreBlock(d + end, last);
    } else {
      for (int32_t x = 0; x < columns; ++x) {
        const int t = d[x] * (255 - m[x]) + s[x] * m[x] + 128;
        d[x] = static_cast<uint8_t>((t + (t >> 8)) >> 8);
      }
    }
    s += sourceStride, d += destinationStride, m += maskStride;
  }
}

[[maybe_unused]] const bool kCompete[] = {
    CompeteAsTwin("hand SSE2", kBlend, 2, ByHand<MixSse2>),
    CompeteAsTwin("hand SSSE3", kBlend, 2, ByHand<MixSsse3>),
};

}  // namespace
}  // namespace vantrix::bench
