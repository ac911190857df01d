// The masked normal blend by hand, in the form that this unit is compiled for: the kernels of
// blnd slot 2 are compared with it.
#include <immintrin.h>

#include "bench/by_form.h"
#include "suites/blend/signatures.h"

namespace vantrix::bench {
namespace {

// A register, and the instructions on it.
#if defined(__AVX512BW__)
using V = __m512i;
V LoadBlock(const uint8_t* from) { return _mm512_loadu_si512(from); }
void StoreBlock(uint8_t* to, V v) { _mm512_storeu_si512(to, v); }
V FillBytes(int value) { return _mm512_set1_epi8(static_cast<char>(value)); }
V FillWords(int value) { return _mm512_set1_epi16(static_cast<int16_t>(value)); }
V Xor(V a, V b) { return _mm512_xor_si512(a, b); }
V Add(V a, V b) { return _mm512_add_epi16(a, b); }
V HighProducts(V a, V b) { return _mm512_mulhi_epu16(a, b); }
V PairProducts(V a, V b) { return _mm512_maddubs_epi16(a, b); }
V Low(V a, V b) { return _mm512_unpacklo_epi8(a, b); }
V High(V a, V b) { return _mm512_unpackhi_epi8(a, b); }
V Pack(V low, V high) { return _mm512_packus_epi16(low, high); }
#elif defined(__AVX2__)
using V = __m256i;
V LoadBlock(const uint8_t* from) { return _mm256_loadu_si256(reinterpret_cast<const V*>(from)); }
void StoreBlock(uint8_t* to, V v) { _mm256_storeu_si256(reinterpret_cast<V*>(to), v); }
V FillBytes(int value) { return _mm256_set1_epi8(static_cast<char>(value)); }
V FillWords(int value) { return _mm256_set1_epi16(static_cast<int16_t>(value)); }
V Xor(V a, V b) { return _mm256_xor_si256(a, b); }
V Add(V a, V b) { return _mm256_add_epi16(a, b); }
V HighProducts(V a, V b) { return _mm256_mulhi_epu16(a, b); }
V PairProducts(V a, V b) { return _mm256_maddubs_epi16(a, b); }
V Low(V a, V b) { return _mm256_unpacklo_epi8(a, b); }
V High(V a, V b) { return _mm256_unpackhi_epi8(a, b); }
V Pack(V low, V high) { return _mm256_packus_epi16(low, high); }
#else
using V = __m128i;
V LoadBlock(const uint8_t* from) { return _mm_loadu_si128(reinterpret_cast<const V*>(from)); }
void StoreBlock(uint8_t* to, V v) { _mm_storeu_si128(reinterpret_cast<V*>(to), v); }
V FillBytes(int value) { return _mm_set1_epi8(static_cast<char>(value)); }
V FillWords(int value) { return _mm_set1_epi16(static_cast<int16_t>(value)); }
V Xor(V a, V b) { return _mm_xor_si128(a, b); }
V Add(V a, V b) { return _mm_add_epi16(a, b); }
V HighProducts(V a, V b) { return _mm_mulhi_epu16(a, b); }
V Low(V a, V b) { return _mm_unpacklo_epi8(a, b); }
V High(V a, V b) { return _mm_unpackhi_epi8(a, b); }
V Pack(V low, V high) { return _mm_packus_epi16(low, high); }
#if defined(__SSSE3__)
V PairProducts(V a, V b) { return _mm_maddubs_epi16(a, b); }
#endif
#endif

V By255(V t) { return HighProducts(Add(t, FillWords(128)), FillWords(257)); }

#if defined(__SSSE3__)
// Multiplies samples less 128 by pairs of a weight and 255 less the weight.
V Mix(V d, V s, V m) {
  const V keep = Xor(m, FillBytes(-1)), middle = FillBytes(-128), bias = FillWords(255 * 128);
  const V sd = Xor(d, middle), ss = Xor(s, middle);
  return Pack(By255(Add(PairProducts(Low(m, keep), Low(ss, sd)), bias)),
              By255(Add(PairProducts(High(m, keep), High(ss, sd)), bias)));
}
#else
V Products(V a, V b) { return _mm_mullo_epi16(a, b); }
V Mix(V d, V s, V m) {
  const V zero = FillBytes(0), keep = Xor(m, FillBytes(-1));
  return Pack(
      By255(Add(Products(Low(d, zero), Low(keep, zero)), Products(Low(s, zero), Low(m, zero)))),
      By255(
          Add(Products(High(d, zero), High(keep, zero)), Products(High(s, zero), High(m, zero)))));
}
#endif

// Blends whole blocks, the last of which reaches back; shorter rows one sample at a time.
void Blend(const uint8_t* s, uint8_t* d, const uint8_t* m, int32_t rows, int32_t columns,
           int32_t sourceStride, int32_t destinationStride, int32_t maskStride) {
  constexpr int32_t kBytes = VX_FORM::kBytes;
  const auto mixAt = [&](int32_t x) {
    return Mix(LoadBlock(d + x), LoadBlock(s + x), LoadBlock(m + x));
  };
  for (; rows > 0; --rows) {
    if (columns >= kBytes) {
      const int32_t end = columns - kBytes;
      const V last = mixAt(end);
      for (int32_t x = 0; x < end; x += kBytes) StoreBlock(d + x, mixAt(x));
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

}  // namespace

template <>
RoutineGetter MaskedBlendByHand<VX_FORM>() {
  static_assert(sizeof(V) == VX_FORM::kBytes);
  return Entry<Blend>;
}

}  // namespace vantrix::bench
