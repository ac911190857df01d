#include "common/tables.h"

#include <cstring>

namespace vantrix {

uint8_t MultiplyTable[256][256];
uint8_t ScreenTable[256][256];
int16_t SignedMultiplyTable[256][512];
uint8_t DivideTable[256][256];
Constant16 SSE2Constants[9];

namespace {

// p / 255 rounded to nearest; 255 is odd, so there are no halves. Shifts keep the sign.
constexpr int DivideSignedBy255(int p) {
  const int t = p + 128 - (p < 0);
  return (t + (t >> 8)) >> 8;
}

template <class T>
void Replicate(Constant16& constant, T value) {
  for (size_t i = 0; i < sizeof constant; i += sizeof value)
    std::memcpy(constant.bytes + i, &value, sizeof value);
}

}  // namespace

void BuildSharedTables() {
  for (int a = 0; a < 256; ++a) {
    for (int b = 0; b < 256; ++b) {
      const int product = DivideSignedBy255(a * b);
      MultiplyTable[a][b] = static_cast<uint8_t>(product);
      ScreenTable[a][b] = static_cast<uint8_t>(a + b - product);
    }
    for (int v = -255; v <= 255; ++v)
      SignedMultiplyTable[a][kSignedCentre + v] = static_cast<int16_t>(DivideSignedBy255(a * v));
  }
  for (int a = 0; a < 256; ++a)
    for (int b = 0; b < 256; ++b)
      DivideTable[a][b] = b > a ? static_cast<uint8_t>((255 * a + b / 2) / b) : 255;
}

void FillSSE2Constants() {
  Constant16* constant = SSE2Constants;
  Replicate(*constant++, uint8_t{0});
  Replicate(*constant++, uint8_t{0x80});
  Replicate(*constant++, uint16_t{0x0080});
  Replicate(*constant++, uint8_t{0xFF});
  Replicate(*constant++, uint16_t{0x00FF});
  Replicate(*constant++, uint16_t{0x4000});
  Replicate(*constant++, uint32_t{0x4000});
  Replicate(*constant++, uint16_t{0x8000});
  Replicate(*constant++, uint32_t{0x8000});
}

}  // namespace vantrix
