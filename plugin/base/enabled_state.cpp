#include "plugin/base/system.h"

namespace vantrix {

uint64_t ReadEnabledState() {
  uint32_t low, high;
  asm volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
  return uint64_t{high} << 32 | low;
}

}  // namespace vantrix
