#include "host/machine.h"

#include <cpuid.h>

#include <cstdint>
#include <cstring>

#if defined(_WIN32)
#include <windows.h>
#else
#include <sys/utsname.h>
#endif

namespace vantrix::host {

std::string ProcessorName() {
  constexpr uint32_t kFirstLeaf = 0x80000002;
  uint32_t words[3][4];
  for (uint32_t i = 0; i < 3; ++i)
    if (!__get_cpuid(kFirstLeaf + i, &words[i][0], &words[i][1], &words[i][2], &words[i][3]))
      return "without a name";
  char text[sizeof words + 1] = {};
  std::memcpy(text, words, sizeof words);
  std::string name(text);
  name.erase(0, name.find_first_not_of(' '));
  name.erase(name.find_last_not_of(' ') + 1);
  return name;
}

#if defined(_WIN32)
namespace {

template <class Function>
Function* FindInSystem(const char* name) {
  const HMODULE library = GetModuleHandleW(L"ntdll.dll");
  return library
             ? reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name)))
             : nullptr;
}

}  // namespace

// Asks the system itself for its version: other functions
// return the one that a program was made for.
std::string SystemName() {
  OSVERSIONINFOW version = {};
  version.dwOSVersionInfoSize = sizeof version;
  std::string name = "Windows";
  if (const auto get = FindInSystem<LONG WINAPI(OSVERSIONINFOW*)>("RtlGetVersion");
      get && get(&version) == 0)
    name += ' ' + std::to_string(version.dwMajorVersion) + '.' +
            std::to_string(version.dwMinorVersion) + '.' + std::to_string(version.dwBuildNumber);
  if (const auto wine = FindInSystem<const char*()>("wine_get_version"))
    name += std::string(", played by Wine ") + wine();
  return name;
}
#else
std::string SystemName() {
  utsname name;
  if (uname(&name) != 0) return "without a name";
  return std::string(name.sysname) + ' ' + name.release;
}
#endif

}  // namespace vantrix::host
