// The forms of a kernel: how many samples it takes at once, and with which
// instructions. A form is a type, so that the same rule compiled for two
// instruction sets gives two functions.
#pragma once

namespace vantrix {

struct OneSample {
  static constexpr int kBlock = 1;
};
struct Sse2 {
  static constexpr int kBlock = 16;
};
struct Ssse3 {
  static constexpr int kBlock = 16;
};
struct Sse41 {
  static constexpr int kBlock = 16;
};

// Not installed yet: for measuring what wider registers would bring.
struct Avx2 {
  static constexpr int kBlock = 32;
};

}  // namespace vantrix
