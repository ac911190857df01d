#include "host/plugin_library.h"

#include <filesystem>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#include <link.h>
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

#if defined(_WIN32)
std::vector<std::span<const char>> DataAround(PluginMainRoutine* entry) {
  HMODULE library;
  if (!GetModuleHandleExW(
          GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
          reinterpret_cast<LPCWSTR>(entry), &library))
    return {};
  const auto base = reinterpret_cast<const char*>(library);
  const auto dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto nt = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
  const IMAGE_SECTION_HEADER* const sections = IMAGE_FIRST_SECTION(nt);
  std::vector<std::span<const char>> data;
  for (WORD i = 0; i < nt->FileHeader.NumberOfSections; ++i)
    if (!(sections[i].Characteristics & (IMAGE_SCN_MEM_EXECUTE | IMAGE_SCN_MEM_DISCARDABLE)))
      data.push_back({base + sections[i].VirtualAddress, sections[i].Misc.VirtualSize});
  return data;
}
#else
std::vector<std::span<const char>> DataAround(PluginMainRoutine* entry) {
  struct Search {
    uintptr_t address;
    std::vector<std::span<const char>> data;
  } search{reinterpret_cast<uintptr_t>(entry), {}};
  dl_iterate_phdr(
      [](dl_phdr_info* library, size_t, void* context) {
        auto& wanted = *static_cast<Search*>(context);
        bool isWanted = false;
        std::vector<std::span<const char>> data;
        for (const ElfW(Phdr) & part : std::span(library->dlpi_phdr, library->dlpi_phnum)) {
          const uintptr_t start = library->dlpi_addr + part.p_vaddr;
          if (part.p_type != PT_LOAD) continue;
          if (part.p_flags & PF_X)
            isWanted |= wanted.address - start < part.p_memsz;
          else
            data.push_back({reinterpret_cast<const char*>(start), part.p_filesz});
        }
        if (isWanted) wanted.data = data;
        return isWanted ? 1 : 0;
      },
      &search);
  return search.data;
}
#endif

}  // namespace vantrix::host
