#include "suites/memory/install.h"

#include "suites/memory/copy.h"
#include "suites/memory/equal.h"
#include "suites/memory/fill.h"

namespace vantrix {
namespace {

constexpr Kernel kKernels[] = {
    {.slot = 0, .sse2 = Entry<CopyBytesSSE2>, .ssse3 = Entry<CopyBytesSSSE3>},
    {.slot = 1, .sse2 = Entry<CopyRect<CopyBytesSSE2>>, .ssse3 = Entry<CopyRect<CopyBytesSSSE3>>},
    {.slot = 3, .sse2 = Entry<FillBytes>},
    {.slot = 4, .sse2 = Entry<FillRect<FillBytes>>},
    {.slot = 17, .sse2 = Entry<BytesAllEqual>},
    {.slot = 18, .sse2 = Entry<RectAllEqual<BytesAllEqual>>},
    {.slot = 65, .sse2 = Entry<FillWords>},
    {.slot = 66, .sse2 = Entry<FillWordRect<FillWords>>},
};

}  // namespace

std::span<const Kernel> MemoryKernels() { return kKernels; }

int32_t InstallMemoryRoutines(const SuiteParameterBlock*) {
  Install<memorySuite, kMemorySlots, kKernels>(processorFeatures);
  return 1;
}

}  // namespace vantrix
