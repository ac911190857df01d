#include "host/exercise/fault.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <pthread.h>
#include <signal.h>
#endif
#include <xmmintrin.h>

#include <atomic>
#include <cstdint>
#include <iterator>

namespace vantrix::host {
namespace {

void* behind[5];                       // where to go on after a fault
std::atomic<uintptr_t> guardedThread;  // 0 if there is none
const char* fault;

constexpr char kInstruction[] = "ran an instruction that this processor does not know";
constexpr char kArithmetic[] = "divided by 0, or made another fault of arithmetic";
constexpr char kBreakPoint[] = "stopped at a break point";
constexpr char kException[] = "threw an exception";

struct Kind {
  uint32_t number;  // the system's
  const char* words;
};

[[noreturn]] void GoBehind() { __builtin_longjmp(behind, 1); }

#if defined(_WIN32)
constexpr Kind kKinds[] = {
    {EXCEPTION_ACCESS_VIOLATION, kWildAccess},      {EXCEPTION_IN_PAGE_ERROR, kWildAccess},
    {EXCEPTION_STACK_OVERFLOW, "ran out of stack"}, {EXCEPTION_ILLEGAL_INSTRUCTION, kInstruction},
    {EXCEPTION_PRIV_INSTRUCTION, kInstruction},     {EXCEPTION_INT_DIVIDE_BY_ZERO, kArithmetic},
    {EXCEPTION_INT_OVERFLOW, kArithmetic},          {EXCEPTION_FLT_DIVIDE_BY_ZERO, kArithmetic},
    {EXCEPTION_FLT_INVALID_OPERATION, kArithmetic}, {EXCEPTION_BREAKPOINT, kBreakPoint},
};
uintptr_t ThisThread() { return GetCurrentThreadId(); }
#else
constexpr Kind kKinds[] = {
    {SIGSEGV, kWildAccess}, {SIGBUS, kWildAccess},  {SIGILL, kInstruction},
    {SIGFPE, kArithmetic},  {SIGTRAP, kBreakPoint}, {SIGABRT, "aborted"},
};
uintptr_t ThisThread() { return static_cast<uintptr_t>(pthread_self()); }
#endif

// Returns whether a fault stopped guarded work, which is then no longer guarded.
bool Stops(const Kind* kind) {
  if (kind == std::end(kKinds) || guardedThread != ThisThread()) return false;
  guardedThread = 0;
  fault = kind->words;
  return true;
}
const Kind* KindOf(uint32_t number) {
  const Kind* kind = kKinds;
  while (kind != std::end(kKinds) && kind->number != number) ++kind;
  return kind;
}

#if defined(_WIN32)
void* handler;

LONG WINAPI OnFault(EXCEPTION_POINTERS* what) {
  if (!Stops(KindOf(what->ExceptionRecord->ExceptionCode))) return EXCEPTION_CONTINUE_SEARCH;
  // Goes on in GoBehind, as if it had been called at the fault.
  what->ContextRecord->Rsp = (what->ContextRecord->Rsp & ~DWORD64{15}) - 8;
  what->ContextRecord->Rip = reinterpret_cast<DWORD64>(GoBehind);
  return EXCEPTION_CONTINUE_EXECUTION;
}

// Catches exceptions of any language's run-time library.
[[gnu::noinline]] bool EndsWithoutException(const std::function<void()>& work) {
  __try {
    work();
    return true;
  } __except (EXCEPTION_EXECUTE_HANDLER) {
    return false;
  }
}
#else
struct sigaction before[std::size(kKinds)];

void OnFault(int number, siginfo_t* information, void* context) {
  const Kind* const kind = KindOf(static_cast<uint32_t>(number));
  if (Stops(kind)) GoBehind();
  const struct sigaction& other = before[kind - kKinds];
  if (other.sa_flags & SA_SIGINFO)
    other.sa_sigaction(number, information, context);
  else if (other.sa_handler == SIG_DFL)
    sigaction(number, &other, nullptr);  // the fault occurs again and ends the program
  else if (other.sa_handler != SIG_IGN)
    other.sa_handler(number);
}

[[gnu::noinline]] bool EndsWithoutException(const std::function<void()>& work) {
  try {
    work();
    return true;
  } catch (...) {
    return false;
  }
}
#endif

// Whether work ends by itself. A separate function, as one
// that goes on after a fault may hold nothing in registers.
[[gnu::noinline]] bool Ends(const std::function<void()>& work) {
  if (__builtin_setjmp(behind)) return false;
  guardedThread = ThisThread();
  const bool isWhole = EndsWithoutException(work);
  guardedThread = 0;
  if (!isWhole) fault = kException;
  return isWhole;
}

}  // namespace

#if defined(_WIN32)
FaultWatch::FaultWatch() { handler = AddVectoredExceptionHandler(1, OnFault); }
FaultWatch::~FaultWatch() { RemoveVectoredExceptionHandler(handler); }

struct FaultStack::Stack {};
FaultStack::FaultStack() {
  ULONG bytes = 1 << 15;  // kept free for the handler
  SetThreadStackGuarantee(&bytes);
}
FaultStack::~FaultStack() = default;
#else
FaultWatch::FaultWatch() {
  struct sigaction action = {};
  action.sa_sigaction = OnFault;
  // The handler jumps out instead of returning.
  action.sa_flags = SA_SIGINFO | SA_NODEFER | SA_ONSTACK;
  for (const Kind& kind : kKinds)
    sigaction(static_cast<int>(kind.number), &action, &before[&kind - kKinds]);
}
FaultWatch::~FaultWatch() {
  for (const Kind& kind : kKinds)
    sigaction(static_cast<int>(kind.number), &before[&kind - kKinds], nullptr);
}

struct FaultStack::Stack {
  stack_t before;
  char bytes[1 << 16];
};
FaultStack::FaultStack() : stack_(std::make_unique<Stack>()) {
  const stack_t stack{.ss_sp = stack_->bytes, .ss_flags = 0, .ss_size = sizeof stack_->bytes};
  sigaltstack(&stack, &stack_->before);
  // A thread inherits which signals are blocked. A fault whose signal is blocked ends the program.
  sigset_t faults;
  sigemptyset(&faults);
  for (const Kind& kind : kKinds) sigaddset(&faults, static_cast<int>(kind.number));
  pthread_sigmask(SIG_UNBLOCK, &faults, nullptr);
}
FaultStack::~FaultStack() { sigaltstack(&stack_->before, nullptr); }
#endif

const char* FaultIn(const std::function<void()>& work) {
  const uint32_t control = _mm_getcsr();
  if (Ends(work)) return nullptr;
  _mm_setcsr(control);
  return fault;
}

}  // namespace vantrix::host
