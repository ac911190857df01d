// A routine that hands its call to the host's own routine for the same slot,
// whatever that routine's signature is.
#pragma once

#include "plugin/base/interface.h"

namespace vantrix {

// One indirect jump: no register and no stack word changes, so every argument,
// the return address and the return value pass untouched under either x64
// calling convention, and there is no frame to unwind. `kSuite` is reached
// rip-relative: it must not be visible outside the library.
template <auto& kSuite, int kSlot>
[[gnu::naked]] void PassThrough() {
  asm("jmp *%c0(%%rip)" : : "i"(&kSuite.saved[kSlot]));
}

}  // namespace vantrix
