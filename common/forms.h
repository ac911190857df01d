// The forms of a kernel: with which instructions it works, and how much it takes at once.
//
// A form is a type, so that one text compiled for two instruction sets gives two functions
// of different names. The build compiles each suite's kernels.cpp once for each of this
// list (cmake/forms.cmake has their compiler flags, under the same names), and the installer,
// the tests, the benchmarks and the host's commands loop over them.
#pragma once

#include <cstddef>

namespace vantrix {

// What a processor executes and its system allows, as far as forms ask for it.
struct InstructionSets {
  bool sse2 = false, ssse3 = false, avx2 = false, avx512 = false;
};

// kBytes: bytes in a register; 1 for one sample at a time, whatever its size.
struct Scalar {
  static constexpr char kName[] = "scalar";
  static constexpr int kBytes = 1;
  static constexpr bool RunsOn(InstructionSets) { return true; }
};
struct Sse2 {
  static constexpr char kName[] = "SSE2";
  static constexpr int kBytes = 16;
  static constexpr bool RunsOn(InstructionSets has) { return has.sse2; }
};
struct Ssse3 {
  static constexpr char kName[] = "SSSE3";
  static constexpr int kBytes = 16;
  static constexpr bool RunsOn(InstructionSets has) { return has.ssse3; }
};
struct Avx2 {
  static constexpr char kName[] = "AVX2";
  static constexpr int kBytes = 32;
  static constexpr bool RunsOn(InstructionSets has) { return has.avx2; }
};
// The instructions of the processors that run 64-byte code without lowering their clock.
struct Avx512 {
  static constexpr char kName[] = "AVX512";
  static constexpr int kBytes = 64;
  static constexpr bool RunsOn(InstructionSets has) { return has.avx512; }
};

template <class... Form>
struct FormList {
  static constexpr size_t kCount = sizeof...(Form);

  // visit.operator()<Form>() for each.
  template <class Visit>
  static constexpr void ForEach([[maybe_unused]] Visit visit) {
    (visit.template operator()<Form>(), ...);
  }
};

// Narrowest first: of those that run, the last stands in a slot.
using Forms = FormList<Scalar, Sse2, Ssse3, Avx2, Avx512>;

}  // namespace vantrix
