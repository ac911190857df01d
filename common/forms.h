// The forms of a kernel: the instruction sets that it is compiled for.
//
// A form is a type, so that one text compiled for two instruction sets gives two functions
// with different names. The build compiles each suite's kernels.cpp once for each form of this
// list (cmake/forms.cmake has their compiler flags, under the same names). The installer, the
// tests, the benchmarks and the host's commands loop over the list.
#pragma once

#include <cstddef>

namespace vantrix {

// What a processor executes and its system allows, as far as forms ask for it.
struct InstructionSets {
  bool sse2 = false, ssse3 = false, avx2 = false, avx512 = false;
};

// kBytes: bytes in a register, or 1 for the form that takes one sample at a time, of any size.
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

  // Calls visit.operator()<Form>() for each.
  template <class Visit>
  static constexpr void ForEach([[maybe_unused]] Visit visit) {
    (visit.template operator()<Form>(), ...);
  }
};

// Narrowest first: of the builds of a slot whose forms run, the last one is written into it.
using Forms = FormList<Scalar, Sse2, Ssse3, Avx2, Avx512>;

}  // namespace vantrix
