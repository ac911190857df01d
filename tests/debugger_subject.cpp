// Lanes, planes and a fill array for a debugger to show. It stops in Stop().
#include "common/operands.h"
#include "suites/path/signatures.h"

namespace vantrix {
namespace {

struct Path {
  FillArray head;
  uint32_t words[4 * 8];
};

[[gnu::noinline]] void Stop() { asm volatile(""); }

[[gnu::noinline]] int Show() {
  uint8_t samples[32];
  for (int i = 0; i < 32; ++i) samples[i] = static_cast<uint8_t>(200 + i);
  [[maybe_unused]] volatile auto one = Lanes<uint8_t, 1>{65};
  [[maybe_unused]] Lanes<uint8_t, 32> bytes;
  for (int i = 0; i < 32; ++i) bytes[i] = samples[i];
  [[maybe_unused]] Lanes<int16_t, 8> words = {-1, 2, -3, 4, -32768, 32767, 0, 1};
  [[maybe_unused]] Lanes<float, 4> floats = {0.5f, -1, 1e10f, 0};
  [[maybe_unused]] Plane plane{samples, -40};
  [[maybe_unused]] Target target{samples + 8, 64};
  [[maybe_unused]] Weights weights{{samples + 16, 16}};
  [[maybe_unused]] Plane nowhere{reinterpret_cast<const uint8_t*>(uintptr_t{16}), 1};
  // Rows -1 to 1: spans and crossings, none, and counts for which there is no room.
  Path path{{}, {2,       2, 4, 9, 0, 0, 7u << 1 | kUpward,
                 5u << 1,  //
                 0,       0, 0, 0, 0, 0, 0,
                 0,  //
                 9,       1, 0, 0, 0, 0, 0,
                 0}};
  path.head.firstRow = -1, path.head.endRow = 2, path.head.rowStride = 8;
  Stop();
  return samples[0] + static_cast<int>(path.head.rowStride);
}

}  // namespace
}  // namespace vantrix

int main() { return vantrix::Show() == 0; }
