#include "plugin/module.h"

#if defined(_WIN32)
#include <windows.h>
#endif

namespace vantrix {
namespace {
void* spareHook;
}

void* moduleHandle;

void SetSpareHook(void* hook) { spareHook = hook; }
void* GetSpareHook() { return spareHook; }

}  // namespace vantrix

#if defined(_WIN32)
// The image's own entry: there are no constructors and no library state to set up.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) vantrix::moduleHandle = module;
  return TRUE;
}
#endif
