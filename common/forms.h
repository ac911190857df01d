// The forms of a kernel: how much it takes at once, and with which instructions. A form
// is a type, so that the same rule compiled for two instruction sets gives two functions.
#pragma once

namespace vantrix {

// kBytes: bytes in a register; 1 for one sample at a time, whatever its size.
struct OneSample {
  static constexpr int kBytes = 1;
};
struct Sse2 {
  static constexpr int kBytes = 16;
};
struct Ssse3 {
  static constexpr int kBytes = 16;
};
struct Sse41 {
  static constexpr int kBytes = 16;
};

// Not installed yet: for measuring what wider registers would bring.
struct Avx2 {
  static constexpr int kBytes = 32;
};

}  // namespace vantrix
