#include "host/exercise/fault.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <signal.h>
#include <unistd.h>
#endif

#include <cstdarg>
#include <cstdio>

namespace vantrix::host {
namespace {

char name[128];

void PrintName() { std::fprintf(stderr, "access fault in %s\n", name); }

#if defined(_WIN32)
LONG WINAPI OnFault(EXCEPTION_POINTERS* fault) {
  if (name[0] == 0 || fault->ExceptionRecord->ExceptionCode != EXCEPTION_ACCESS_VIOLATION)
    return EXCEPTION_CONTINUE_SEARCH;
  PrintName();
  TerminateProcess(GetCurrentProcess(), 1);
  return EXCEPTION_CONTINUE_SEARCH;
}
void Watch() { SetUnhandledExceptionFilter(OnFault); }
#else
void OnFault(int number) {
  if (name[0] != 0) {
    PrintName();
    _exit(1);
  }
  signal(number, SIG_DFL);
  raise(number);
}
void Watch() {
  signal(SIGSEGV, OnFault);
  signal(SIGBUS, OnFault);
}
#endif

}  // namespace

void NameFault(const char* format, ...) {
  static const bool isWatching = (Watch(), true);
  static_cast<void>(isWatching);
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(name, sizeof name, format, arguments);
  va_end(arguments);
}

void NameNoFault() { name[0] = 0; }

}  // namespace vantrix::host
