// Routines that fault, each in its way.
#pragma once

#include <cstdint>

namespace vantrix {

inline void TouchNull() {
  volatile uintptr_t place = 8;  // volatile: compilers warn of an address that they know
  *reinterpret_cast<volatile char*>(place) = 1;
}

// Recurses until the stack is full. No compiler knows that it does not end.
inline int Sink(int level) {
  static volatile int depth = 1 << 30;
  volatile char frame[512];
  frame[0] = static_cast<char>(level);
  return level >= depth ? 0 : Sink(level + 1) + frame[0];
}
inline void FillStack() { Sink(0); }

}  // namespace vantrix
