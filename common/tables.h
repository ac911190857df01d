// The arithmetic tables that start-up builds and every kernel may read.
//
// Written once, before any kernel is installed, and only read from then on. A kernel that
// computes a value instead of loading it gets exactly the table's.
#pragma once

#include <cstdint>

namespace vantrix {

// [a][b] = a b / 255, rounded to nearest.
extern uint8_t MultiplyTable[256][256];

// [a][b] = a + b - MultiplyTable[a][b].
extern uint8_t ScreenTable[256][256];

// [a][kSignedCentre + v] = a v / 255 for v in -255..255, rounded to nearest; a
// row's last entry stays 0.
extern int16_t SignedMultiplyTable[256][512];
inline constexpr int kSignedCentre = 255;

// [a][b] = 255 a / b, halves rounded up, if b > a; else 255.
extern uint8_t DivideTable[256][256];

// Nine 16-byte constants, all zero on a processor without SSE2. They are part of the module's
// data; no kernel reads them.
struct alignas(16) Constant16 {
  uint8_t bytes[16];
};
extern Constant16 SSE2Constants[9];

void BuildSharedTables();
void FillSSE2Constants();

}  // namespace vantrix
