#include "host/own_window.h"

#if defined(_WIN32)

#include <windows.h>
// After windows.h, whose types they need.
#include <conio.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>
#include <cstdlib>

namespace vantrix::host {

bool HasOwnWindow() {
  DWORD processes[2];
  return GetConsoleProcessList(processes, 2) == 1 && _isatty(_fileno(stdout)) &&
         _isatty(_fileno(stdin));
}

void KeepWindowAtEnd() {
  std::atexit([] {
    std::printf("\nPress a key to close this window.\n");
    std::fflush(stdout);
    _getch();
  });
}

bool OpenFile(const std::filesystem::path& path) {
  constexpr INT_PTR kLastError = 32;
  return reinterpret_cast<INT_PTR>(ShellExecuteW(nullptr, L"open", path.c_str(), nullptr, nullptr,
                                                 SW_SHOWNORMAL)) > kLastError;
}

}  // namespace vantrix::host

#else

namespace vantrix::host {

bool HasOwnWindow() { return false; }
void KeepWindowAtEnd() {}
bool OpenFile(const std::filesystem::path&) { return false; }

}  // namespace vantrix::host

#endif
