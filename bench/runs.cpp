// Copies and fills of one run beside the C library's.
#include <cstring>

#include "bench/bench.h"
#include "host/exercise/exercises.h"
#include "suites/memory/copy.h"
#include "suites/memory/fill.h"

namespace vantrix::bench {
namespace {

void LibraryCopy(const uint8_t* source, uint8_t* destination, int32_t bytes) {
  std::memcpy(destination, source, static_cast<size_t>(bytes));
}
void LibraryFill(uint8_t* destination, int32_t bytes, uint32_t value) {
  std::memset(destination, static_cast<int>(value), static_cast<size_t>(bytes));
}

}  // namespace

void RegisterRuns() {
  for (const int32_t bytes :
       {16, 31, 64, 100, 128, 200, 256, 500, 1000, 4000, 16000, 64000, 1 << 18, 1 << 20, 1 << 24}) {
    const auto add = [&](const char* name, host::Exercise* exercise, auto* routine) {
      Register(name, exercise, reinterpret_cast<Routine>(routine), {1, bytes});
    };
    add("runs/copy/library", host::ExerciseCopyBytes, LibraryCopy);
    add("runs/copy/SSE2", host::ExerciseCopyBytes, CopyBytesSSE2);
    add("runs/copy/SSSE3", host::ExerciseCopyBytes, CopyBytesSSSE3);
    add("runs/fill/library", host::ExerciseFillBytes, LibraryFill);
    add("runs/fill/SSE2", host::ExerciseFillBytes, FillBytes);
  }
}

}  // namespace vantrix::bench
