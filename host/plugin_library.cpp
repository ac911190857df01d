#include "host/plugin_library.h"

#include "host/paths.h"

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
constexpr char kFileName[] = "Vantrix.dll", kCheckName[] = "VantrixCheck.dll";
std::filesystem::path PathOfModule(HMODULE module) {
  std::wstring path(MAX_PATH, 0);
  while (GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())) == path.size())
    path.resize(2 * path.size());
  return path.c_str();
}
HMODULE ModuleAround(void* entry) {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      static_cast<LPCWSTR>(entry), &module);
  return module;
}
std::string ReasonOfTheSystem() {
  const DWORD error = GetLastError();
  wchar_t text[256] = {};
  FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                 text, 255, nullptr);
  std::wstring reason(text);
  reason.erase(reason.find_last_not_of(L" \r\n.") + 1);
  return TextOf(std::filesystem::path(reason)) + " (" + std::to_string(error) + ")";
}
#else
constexpr char kFileName[] = "libvantrix.so", kCheckName[] = "libvantrixcheck.so";
std::string ReasonOfTheSystem() {
  const char* const reason = dlerror();
  return reason ? reason : "no reason given";
}
#endif

}  // namespace

#if defined(_WIN32)
std::filesystem::path ThisProgram() { return PathOfModule(nullptr); }
#else
std::filesystem::path ThisProgram() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored);
}
#endif

std::filesystem::path DefaultPluginPath() { return ThisProgram().parent_path() / kFileName; }
std::filesystem::path DefaultCheckPath() { return ThisProgram().parent_path() / kCheckName; }

// Loads by the absolute path: a bare name would be searched
// for, and another library could be found.
PluginMainRoutine* LoadPlugin(const std::filesystem::path& path, std::string* error) {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) {
    *error = "there is no file " + TextOf(path);
    return nullptr;
  }
  const std::filesystem::path whole = std::filesystem::absolute(path);
#if defined(_WIN32)
  const HMODULE library = LoadLibraryW(whole.c_str());
  void* const entry =
      library ? reinterpret_cast<void*>(GetProcAddress(library, kEntryPoint)) : nullptr;
#else
  void* const library = dlopen(whole.c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const entry = library ? dlsym(library, kEntryPoint) : nullptr;
#endif
  if (!library)
    *error = TextOf(whole) + " is not a library that this system loads: " + ReasonOfTheSystem();
  else if (!entry)
    *error = TextOf(whole) + " does not export " + kEntryPoint;
  return reinterpret_cast<PluginMainRoutine*>(entry);
}

#if defined(_WIN32)
std::filesystem::path PathOfLibrary(PluginMainRoutine* entry) {
  return PathOfModule(ModuleAround(reinterpret_cast<void*>(entry)));
}
bool LiesInPlugin(Routine routine) {
  const HMODULE module = ModuleAround(reinterpret_cast<void*>(routine));
  return module && GetProcAddress(module, kEntryPoint);
}
#else
std::filesystem::path PathOfLibrary(PluginMainRoutine* entry) {
  Dl_info library;
  return dladdr(reinterpret_cast<void*>(entry), &library) ? library.dli_fname : "";
}
bool LiesInPlugin(Routine routine) {
  Dl_info library, entrysLibrary;
  if (!dladdr(reinterpret_cast<void*>(routine), &library)) return false;
  void* const loaded = dlopen(library.dli_fname, RTLD_LAZY | RTLD_NOLOAD);
  if (!loaded) return false;
  // An entry point that another library lends it is not its own.
  void* const entry = dlsym(loaded, kEntryPoint);
  dlclose(loaded);
  return entry && dladdr(entry, &entrysLibrary) && entrysLibrary.dli_fbase == library.dli_fbase;
}
#endif

#if defined(_WIN32)
std::vector<std::span<const char>> DataAround(PluginMainRoutine* entry) {
  const HMODULE library = ModuleAround(reinterpret_cast<void*>(entry));
  if (!library) return {};
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
