// libyuv's routines for planes.
#include <libyuv.h>

#include "bench/bench.h"
#include "suites/blend/signatures.h"
#include "suites/convert/signatures.h"
#include "suites/memory/signatures.h"
#include "suites/resample/signatures.h"

namespace vantrix::bench {
namespace {

// (s m + d (255 - m) + 255) / 256.
void Masked(const uint8_t* s, uint8_t* d, const uint8_t* m, int32_t rows, int32_t columns,
            int32_t ss, int32_t ds, int32_t ms) {
  libyuv::BlendPlane(s, ss, d, ds, m, ms, d, ds, columns, rows);
}

// v 257 / 2, truncated.
void Expand(const uint8_t* s, uint16_t* d, int32_t rows, int32_t width, int32_t ss, int32_t ds) {
  libyuv::Convert8To16Plane(s, ss, d, ds / 2, 32768, width, rows);
}

void Copy(const uint8_t* s, uint8_t* d, int32_t rows, int32_t bytes, int32_t ss, int32_t ds) {
  libyuv::CopyPlane(s, ss, d, ds, bytes, rows);
}
void Fill(uint8_t* d, int32_t rows, int32_t width, int32_t stride, uint32_t value) {
  libyuv::SetPlane(d, stride, width, rows, static_cast<uint8_t>(value));
}

void Scale(const uint8_t* s, int32_t ss, int32_t width, int32_t height, uint8_t* d, int32_t ds,
           int32_t newWidth, int32_t newHeight) {
  libyuv::ScalePlane(s, ss, width, height, d, ds, newWidth, newHeight, libyuv::kFilterBox);
}
// Averages two rows. For more rows libyuv would read only two.
void AverageRows(const uint8_t* s, uint8_t* d, int32_t rows, int32_t width, const int32_t* counts,
                 int32_t ss, int32_t ds) {
  Scale(s, ss, width, rows * counts[0], d, ds, width, rows);
}
void AverageArea(const uint8_t* s, uint8_t* d, int32_t rows, int32_t columns, int32_t blockWidth,
                 int32_t blockHeight, int32_t ss, int32_t ds) {
  Scale(s, ss, columns * blockWidth, rows * blockHeight, d, ds, columns, rows);
}

constexpr const char* kName = "libyuv";
[[maybe_unused]] const bool kCompete[] = {
    Compete(kName, kBlend, {2}, Masked),
    Compete(kName, kConvert, {18}, Expand),
    Compete(kName, kMemory, {1}, Copy),
    Compete(kName, kMemory, {4}, Fill),
    Compete(kName, kResample, {3}, AverageRows, "of 2"),
    Compete(kName, kResample, {24}, AverageArea),
};

}  // namespace
}  // namespace vantrix::bench
