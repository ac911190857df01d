// What the module keeps about itself.
#pragma once

namespace vantrix {

// The handle that the system gave on attaching; null elsewhere than on Windows.
extern void* moduleHandle;

// A spare hook: nothing in the plug-in sets, reads or calls it.
void SetSpareHook(void* hook);
void* GetSpareHook();

}  // namespace vantrix
