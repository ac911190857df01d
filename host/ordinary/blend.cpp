// The blends with the usual division by 255, in int.
#include "host/ordinary/ordinary.h"
#include "suites/blend/signatures.h"

namespace vantrix::host {
namespace {

constexpr int By255(int product) { return (product + 128 + ((product + 128) >> 8)) >> 8; }
constexpr int Mixed(int d, int r, int weight) { return By255(d * (255 - weight) + r * weight); }

using Mode = int(int d, int s);
constexpr int Normal(int, int s) { return s; }
constexpr int Multiplied(int d, int s) { return By255(d * s); }
constexpr int Screened(int d, int s) { return d + s - By255(d * s); }
constexpr int Overlaid(int d, int s) {
  return d < 128 ? By255(2 * d * s) : Screened(2 * d - 255, s);
}
constexpr int HardLit(int d, int s) {
  return s < 128 ? By255(2 * s * d) : Screened(d, 2 * s - 256);
}
constexpr int Lighter(int d, int s) { return s > d ? s : d; }
constexpr int Darker(int d, int s) { return s < d ? s : d; }

template <Mode& kMode>
void Plain(const uint8_t* s, uint8_t* d, int32_t rows, int32_t columns, int32_t ss, int32_t ds) {
  for (; rows > 0; --rows, s += ss, d += ds)
    for (int32_t x = 0; x < columns; ++x) d[x] = static_cast<uint8_t>(kMode(d[x], s[x]));
}
template <Mode& kMode>
void Opaque(const uint8_t* s, uint8_t* d, int32_t rows, int32_t columns, int32_t ss, int32_t ds,
            uint32_t opacity) {
  const int k = static_cast<uint8_t>(opacity);
  for (; rows > 0; --rows, s += ss, d += ds)
    for (int32_t x = 0; x < columns; ++x)
      d[x] = static_cast<uint8_t>(Mixed(d[x], kMode(d[x], s[x]), k));
}
template <Mode& kMode>
void Masked(const uint8_t* s, uint8_t* d, const uint8_t* m, int32_t rows, int32_t columns,
            int32_t ss, int32_t ds, int32_t ms) {
  for (; rows > 0; --rows, s += ss, d += ds, m += ms)
    for (int32_t x = 0; x < columns; ++x)
      d[x] = static_cast<uint8_t>(Mixed(d[x], kMode(d[x], s[x]), m[x]));
}
template <Mode& kMode>
void Color(uint32_t color, uint8_t* d, const uint8_t* m, int32_t rows, int32_t columns, int32_t ds,
           int32_t ms) {
  const int c = static_cast<uint8_t>(color);
  for (; rows > 0; --rows, d += ds, m += ms)
    for (int32_t x = 0; x < columns; ++x)
      d[x] = static_cast<uint8_t>(Mixed(d[x], kMode(d[x], c), m[x]));
}

template <bool kInvertsFirst>
void Product(const uint8_t* a, uint8_t* d, const uint8_t* b, int32_t rows, int32_t columns,
             int32_t as, int32_t ds, int32_t bs) {
  constexpr int kInvert = kInvertsFirst ? 255 : 0;
  for (; rows > 0; --rows, a += as, d += ds, b += bs)
    for (int32_t x = 0; x < columns; ++x)
      d[x] = static_cast<uint8_t>(By255((a[x] ^ kInvert) * b[x]) ^ kInvert);
}
void InvertedProduct(const uint8_t* a, const uint8_t* b, uint8_t* d, int32_t rows, int32_t columns,
                     int32_t as, int32_t bs, int32_t ds, uint32_t invertFirst,
                     uint32_t invertSecond, uint32_t invertResult) {
  const auto inverts = [](uint32_t flag) { return static_cast<uint8_t>(flag) ? 255 : 0; };
  const int first = inverts(invertFirst), second = inverts(invertSecond);
  const int result = inverts(invertResult);
  for (; rows > 0; --rows, a += as, d += ds, b += bs)
    for (int32_t x = 0; x < columns; ++x)
      d[x] = static_cast<uint8_t>(By255((a[x] ^ first) * (b[x] ^ second)) ^ result);
}

}  // namespace

std::span<const Ordinary> OrdinaryBlends() {
  static const Ordinary routines[] = {
      Use(2, Masked<Normal>),      Use(3, Color<Normal>),      Use(7, Masked<Darker>),
      Use(8, Color<Darker>),       Use(10, Masked<Lighter>),   Use(11, Color<Lighter>),
      Use(22, Masked<Multiplied>), Use(24, Plain<Multiplied>), Use(26, Color<Screened>),
      Use(27, Plain<Screened>),    Use(28, Plain<Lighter>),    Use(29, Plain<Darker>),
      Use(47, Masked<Overlaid>),   Use(48, Color<Overlaid>),   Use(49, Plain<Overlaid>),
      Use(50, Masked<HardLit>),    Use(51, Color<HardLit>),    Use(52, Plain<HardLit>),
      Use(56, Opaque<Multiplied>), Use(57, Opaque<Screened>),  Use(58, Opaque<Overlaid>),
      Use(59, Opaque<HardLit>),    Use(74, Product<false>),    Use(75, Product<true>),
      Use(97, InvertedProduct),
  };
  return routines;
}

}  // namespace vantrix::host
