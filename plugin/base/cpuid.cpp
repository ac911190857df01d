// What the processor itself is asked, on any system.
#include <cpuid.h>

#include "plugin/base/system.h"

namespace vantrix {

CpuidWords ReadCpuid(uint32_t leaf, uint32_t subLeaf) {
  CpuidWords words;
  __cpuid_count(leaf, subLeaf, words.eax, words.ebx, words.ecx, words.edx);
  return words;
}

uint64_t ReadEnabledState() {
  uint32_t low, high;
  asm volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
  return uint64_t{high} << 32 | low;
}

}  // namespace vantrix
