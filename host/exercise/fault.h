// Catches faults of work that may access memory outside a plane, or run instructions that the
// processor does not know.
#pragma once

#include <functional>
#include <memory>

namespace vantrix::host {

// While one exists, FaultIn catches faults. The previous handlers still get the faults of other
// threads, and all faults afterwards. Only one may exist at a time.
class FaultWatch {
 public:
  FaultWatch();
  ~FaultWatch();
  FaultWatch(const FaultWatch&) = delete;
  FaultWatch& operator=(const FaultWatch&) = delete;
};

// FaultIn also catches work that fills the stack, on the thread that makes one of these.
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

// What FaultIn returns if an access to memory stopped the work.
inline constexpr char kWildAccess[] = "touched memory that it may not";

// Does work(), on one thread at a time. Returns what stopped it, or null. Work that was stopped
// does not go on: what it held is lost, and floating-point control is restored.
const char* FaultIn(const std::function<void()>& work);

}  // namespace vantrix::host
