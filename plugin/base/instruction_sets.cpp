#include "plugin/base/instruction_sets.h"

namespace vantrix {

InstructionSets instructionSets;

namespace {

// The bits that must all be set, of leaf 1, of the enabled state, and of leaf 7.
struct Needs {
  uint32_t leaf1Ecx;
  uint64_t enabled;
  uint32_t leaf7Ebx, leaf7Ecx;
};

constexpr uint32_t kReadsEnabledState = 1u << 27;

// SSSE3, SSE4.1, SSE4.2, POPCNT, enabled state, AVX; XMM and YMM; AVX2. A compiler that may use
// AVX2 may use the older sets too.
constexpr Needs kAvx2{0x18980200, 0x06, 1u << 5, 0};

// The same and FMA, F16C; masks and ZMM; F, DQ, IFMA, CD, BW, VL; VBMI,
// VBMI2, GFNI, VAES, VPCLMULQDQ, VNNI, BITALG, VPOPCNTDQ. The kernels use
// some of these. The first generation of processors that does not lower its
// clock under 64-byte code has them all; the generation before it does not.
constexpr Needs kAvx512{kAvx2.leaf1Ecx | 1u << 12 | 1u << 29, 0xE6, kAvx2.leaf7Ebx | 0xD0230000,
                        0x5F42};

constexpr bool HasAll(uint64_t bits, uint64_t wanted) { return (bits & wanted) == wanted; }

}  // namespace

InstructionSets DetectInstructionSets(const System& system, const ProcessorFeatures& has) {
  InstructionSets sets{.sse2 = has.hasSSE2 != 0, .ssse3 = has.hasSSSE3 != 0};
  // A leaf above the highest one gives another leaf's words.
  if (!sets.sse2 || system.cpuid(0, 0).eax < 7) return sets;
  const uint32_t leaf1 = system.cpuid(1, 0).ecx;
  if (!HasAll(leaf1, kReadsEnabledState)) return sets;
  const uint64_t enabled = system.enabledState();
  const CpuidWords leaf7 = system.cpuid(7, 0);
  const auto runs = [&](const Needs& needs) {
    return HasAll(leaf1, needs.leaf1Ecx) && HasAll(enabled, needs.enabled) &&
           HasAll(leaf7.ebx, needs.leaf7Ebx) && HasAll(leaf7.ecx, needs.leaf7Ecx);
  };
  sets.avx2 = runs(kAvx2);
  sets.avx512 = runs(kAvx512);
  return sets;
}

}  // namespace vantrix
