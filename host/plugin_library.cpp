#include "host/plugin_library.h"

#include <filesystem>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace vantrix::host {
namespace {

constexpr char kEntryPoint[] = "PluginMain";

#if defined(_WIN32)
constexpr char kFileName[] = "Vantrix.dll";
std::filesystem::path ThisProgram() {
  wchar_t path[MAX_PATH];
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  return path;
}
#else
constexpr char kFileName[] = "libvantrix.so";
std::filesystem::path ThisProgram() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored);
}
#endif

}  // namespace

std::string DefaultPluginPath() { return (ThisProgram().parent_path() / kFileName).string(); }

PluginMainRoutine* LoadPlugin(const std::string& path, std::string* error) {
  std::error_code ignored;
  if (!std::filesystem::exists(path, ignored)) {
    *error = "there is no file " + path;
    return nullptr;
  }
#if defined(_WIN32)
  const HMODULE library = LoadLibraryW(std::filesystem::path(path).c_str());
  void* const entry =
      library ? reinterpret_cast<void*>(GetProcAddress(library, kEntryPoint)) : nullptr;
#else
  void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const entry = library ? dlsym(library, kEntryPoint) : nullptr;
#endif
  if (!library)
    *error = path + " is not a library that this system loads";
  else if (!entry)
    *error = path + " does not export " + kEntryPoint;
  return reinterpret_cast<PluginMainRoutine*>(entry);
}

}  // namespace vantrix::host
