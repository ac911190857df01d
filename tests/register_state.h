// Whether the halves of the vector registers behind the first 16 bytes hold anything.
//
// A routine that returns with something in them slows down every SSE instruction that its
// caller executes later. The processor keeps count: XGETBV with ECX = 1.
#pragma once

#include "tests/builds.h"

namespace vantrix {

// A bit for the halves of 16 bytes, and one for those of 32.
inline uint32_t UpperHalvesInUse() {
  uint32_t low, high;
  asm volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(1));
  return low & 0x44;
}

// Whether it can be asked, and answers as it should: emulators say that they are always in use.
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
