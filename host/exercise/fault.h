// Work that may touch memory outside a plane, or run what the processor does not know.
#pragma once

#include <functional>
#include <memory>

namespace vantrix::host {

// While one lives, FaultIn catches faults. What handled them before gets those of other threads
// meanwhile, and all of them afterwards. One at a time.
class FaultWatch {
 public:
  FaultWatch();
  ~FaultWatch();
  FaultWatch(const FaultWatch&) = delete;
  FaultWatch& operator=(const FaultWatch&) = delete;
};

// On the thread that makes one, work that fills the stack is caught too.
class FaultStack {
 public:
  FaultStack();
  ~FaultStack();
  FaultStack(const FaultStack&) = delete;
  FaultStack& operator=(const FaultStack&) = delete;

 private:
  struct Stack;
  std::unique_ptr<Stack> stack_;
};

// What stopped work, where it was memory.
inline constexpr char kWildAccess[] = "touched memory that it may not";

// Does work(), on one thread at a time; returns what stopped it, or null. Work that was stopped
// does not go on: what it held is lost, and floating-point control is as it was before.
const char* FaultIn(const std::function<void()>& work);

}  // namespace vantrix::host
