#include "check/halt.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#include <pthread.h>
#include <signal.h>

#include <atomic>
#include <chrono>
#include <thread>
#endif

namespace vantrix::check {

#if defined(_WIN32)

uintptr_t HaltableThread() { return GetCurrentThreadId(); }

bool HaltForGood(uintptr_t thread) {
  const HANDLE handle = OpenThread(THREAD_SUSPEND_RESUME, FALSE, static_cast<DWORD>(thread));
  if (!handle) return false;
  const bool isHalted = SuspendThread(handle) != static_cast<DWORD>(-1);
  CloseHandle(handle);
  return isHalted;
}

void StayLoaded() {
  HMODULE module;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                     reinterpret_cast<LPCWSTR>(StayLoaded), &module);
}

#else

namespace {

// Returns the last of the signals for a program's own use.
int HaltSignal() { return SIGRTMAX; }

std::atomic<bool> isHalted;

// Blocks every signal, so that the thread never goes on.
void Halt(int) {
  isHalted = true;
  sigset_t all;
  sigfillset(&all);
  for (;;) sigsuspend(&all);
}

}  // namespace

uintptr_t HaltableThread() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, HaltSignal());
  pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
  return static_cast<uintptr_t>(pthread_self());
}

bool HaltForGood(uintptr_t thread) {
  struct sigaction action = {}, before;
  action.sa_handler = Halt;
  sigfillset(&action.sa_mask);
  isHalted = false;
  if (sigaction(HaltSignal(), &action, &before) != 0) return false;
  pthread_kill(static_cast<pthread_t>(thread), HaltSignal());
  for (int turn = 0; turn < 1000 && !isHalted; ++turn)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  // A signal that has not arrived yet still needs its handler.
  if (isHalted) sigaction(HaltSignal(), &before, nullptr);
  return isHalted;
}

void StayLoaded() {
  Dl_info library;
  if (dladdr(reinterpret_cast<void*>(StayLoaded), &library))
    dlopen(library.dli_fname, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
}

#endif

}  // namespace vantrix::check
