// Additions in registers, in the form that this unit is compiled for. They distinguish a processor
// that splits its widest registers from one that takes them whole.
#include "bench/by_form.h"
#include "common/lanes.h"

namespace vantrix::bench {

template <>
void AddRegisters<VX_FORM>(int rounds) {
  Register<uint8_t, VX_FORM> sums[kAddsInRound] = {}, one{};
  asm("" : "+x"(one));
  for (; rounds > 0; --rounds) {
#pragma GCC unroll 8
    for (int i = 0; i < kAddsInRound; ++i) {
      sums[i] += one;
      asm volatile("" : "+x"(sums[i]));  // keeps the additions of the rounds apart
    }
  }
}

}  // namespace vantrix::bench
