// The exported entry point.
#include <type_traits>

#include "plugin/startup.h"

#if defined(_WIN32)
#define VX_EXPORT __declspec(dllexport)
#else
#define VX_EXPORT [[gnu::visibility("default")]]
#endif

// selector: only its low 16 bits count. 0 and 2 do nothing; there is nothing to
// shut down, since installed kernels stay in the host's tables.
// data: never read. result: always written.
extern "C" VX_EXPORT int32_t PluginMain(int32_t selector, const vantrix::SuiteParameterBlock* block,
                                        uintptr_t /*data*/, int16_t* result) {
  *result = 0;
  switch (static_cast<int16_t>(selector)) {
    case vantrix::kAbout:
    case vantrix::kShutDown:
      return 0;
    case vantrix::kStartUp:
      return vantrix::Startup(block, result, vantrix::kThisSystem);
    default:
      return *result = vantrix::kUnknownSelector;
  }
}

static_assert(std::is_same_v<decltype(PluginMain), vantrix::PluginMainRoutine>);
