#include "host/exercise/fault.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <signal.h>
#endif
#include <xmmintrin.h>

#include <cstdint>

namespace vantrix::host {
namespace {

void* behind[5];  // where to go on after a fault
bool isGuarded;
const char* fault;

constexpr char kAccess[] = "touched memory that it may not";
constexpr char kInstruction[] = "ran an instruction that this processor does not know";

[[noreturn]] void GoBehind() { __builtin_longjmp(behind, 1); }

#if defined(_WIN32)
LONG WINAPI OnFault(EXCEPTION_POINTERS* what) {
  const DWORD code = what->ExceptionRecord->ExceptionCode;
  const bool isAccess = code == EXCEPTION_ACCESS_VIOLATION;
  if (!isGuarded || (!isAccess && code != EXCEPTION_ILLEGAL_INSTRUCTION))
    return EXCEPTION_CONTINUE_SEARCH;
  isGuarded = false;
  fault = isAccess ? kAccess : kInstruction;
  // Goes on in GoBehind, as if it had been called where the fault was.
  what->ContextRecord->Rsp = (what->ContextRecord->Rsp & ~DWORD64{15}) - 8;
  what->ContextRecord->Rip = reinterpret_cast<DWORD64>(GoBehind);
  return EXCEPTION_CONTINUE_EXECUTION;
}
void Watch() { AddVectoredExceptionHandler(1, OnFault); }
#else
void OnFault(int number) {
  if (!isGuarded) {
    signal(number, SIG_DFL);
    raise(number);
    return;
  }
  isGuarded = false;
  fault = number == SIGILL ? kInstruction : kAccess;
  GoBehind();
}
void Watch() {
  struct sigaction action = {};
  action.sa_handler = OnFault;
  action.sa_flags = SA_NODEFER;  // the handler is left, not returned from
  for (const int number : {SIGSEGV, SIGBUS, SIGILL}) sigaction(number, &action, nullptr);
}
#endif

// Apart, as a function that goes on behind a fault may hold nothing in registers.
[[gnu::noinline]] bool Ends(const std::function<void()>& work) {
  if (__builtin_setjmp(behind)) return false;
  isGuarded = true;
  work();
  isGuarded = false;
  return true;
}

}  // namespace

const char* FaultIn(const std::function<void()>& work) {
  static const bool isWatching = (Watch(), true);
  static_cast<void>(isWatching);
  const uint32_t control = _mm_getcsr();
  if (Ends(work)) return nullptr;
  _mm_setcsr(control);
  return fault;
}

}  // namespace vantrix::host
