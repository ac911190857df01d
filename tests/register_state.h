// Whether the vector registers hold anything above their first 16 bytes.
//
// A routine that returns with something there slows down every SSE instruction that its caller
// executes later. The processor keeps track: XGETBV with ECX = 1.
#pragma once

#include "tests/builds.h"

namespace vantrix {

// Returns one bit for upper halves of 16 bytes, and one for upper halves of 32 bytes.
inline uint32_t UpperHalvesInUse() {
  uint32_t low, high;
  asm volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(1));
  return low & 0x44;
}

// Whether the processor can be asked, and reports correctly:
// emulators say that the halves are always in use.
inline bool TellsUpperHalves() {
  if (!InstructionSetsHere().avx2 || !(kThisSystem.cpuid(13, 1).eax & 4)) return false;
  asm volatile("vzeroupper");
  const uint32_t without = UpperHalvesInUse();
  asm volatile("vpcmpeqd %%ymm0, %%ymm0, %%ymm0" : : : "xmm0");
  const uint32_t with = UpperHalvesInUse();
  asm volatile("vzeroupper");
  return without == 0 && with != 0;
}

}  // namespace vantrix
