// The host handles an access fault in a kernel, some frames above. The system must unwind through
// the frame of the kernel, which a wide kernel aligns itself, and restore the caller's registers.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <functional>
#include <set>

#include "tests/builds.h"
#include "tests/started_tables.h"

namespace vantrix {
namespace {

[[gnu::noinline]] bool Faults(const std::function<void()>& call) {
  __try {
    call();
    return false;
  } __except (EXCEPTION_EXECUTE_HANDLER) {
    return true;
  }
}

// Calls with marks in the vector registers that a callee
// must keep. Returns whether they are still there.
[[gnu::noinline]] bool KeepsRegisters(const std::function<void()>& call, bool* faults) {
  alignas(16) uint8_t marks[160], found[160];
  for (size_t i = 0; i < sizeof marks; ++i) marks[i] = static_cast<uint8_t>(i + 1);
  std::memset(found, 0, sizeof found);
  asm volatile(
      "movaps (%0), %%xmm6\n\tmovaps 16(%0), %%xmm7\n\tmovaps 32(%0), %%xmm8\n\t"
      "movaps 48(%0), %%xmm9\n\tmovaps 64(%0), %%xmm10\n\tmovaps 80(%0), %%xmm11\n\t"
      "movaps 96(%0), %%xmm12\n\tmovaps 112(%0), %%xmm13\n\tmovaps 128(%0), %%xmm14\n\t"
      "movaps 144(%0), %%xmm15"
      :
      : "r"(marks)
      : "memory", "xmm6", "xmm7", "xmm8", "xmm9", "xmm10", "xmm11", "xmm12", "xmm13", "xmm14",
        "xmm15");
  *faults = Faults(call);
  asm volatile(
      "movaps %%xmm6, (%0)\n\tmovaps %%xmm7, 16(%0)\n\tmovaps %%xmm8, 32(%0)\n\t"
      "movaps %%xmm9, 48(%0)\n\tmovaps %%xmm10, 64(%0)\n\tmovaps %%xmm11, 80(%0)\n\t"
      "movaps %%xmm12, 96(%0)\n\tmovaps %%xmm13, 112(%0)\n\tmovaps %%xmm14, 128(%0)\n\t"
      "movaps %%xmm15, 144(%0)"
      :
      : "r"(found)
      : "memory");
  return std::memcmp(marks, found, sizeof marks) == 0;
}

// Faults like a kernel that saves wide registers: in a frame at a multiple of 64, which also holds
// the caller's registers.
[[gnu::noinline]] void FaultInAlignedFrame() {
  alignas(64) volatile uint8_t aside[128];
  aside[0] = 1;
  asm volatile("xorps %%xmm6, %%xmm6\n\txorps %%xmm15, %%xmm15" : : : "xmm6", "xmm15");
  *reinterpret_cast<volatile uint8_t*>(uintptr_t{aside[0]}) = 1;
}

TEST(UnwindTest, LeavesAFrameOfAnyAlignment) {
  bool faults = false;
  EXPECT_TRUE(KeepsRegisters(FaultInAlignedFrame, &faults));
  EXPECT_TRUE(faults);
}

// Whether a kernel only returns a result.
bool WritesNothing(const TestedBuild& build) {
  const std::set<std::pair<SuiteIndex, int>> readers = {
      {kFilter, 188}, {kFilter, 189}, {kMemory, 17}, {kMemory, 18}, {kSelect, 33}, {kSelect, 75}};
  return readers.count({build.suite, build.slot}) > 0;
}

class KernelUnwindTest : public ::testing::TestWithParam<TestedBuild> {};

TEST_P(KernelUnwindTest, LeavesAKernelThatFaults) {
  if (!GetParam().runsHere) GTEST_SKIP() << "not on this processor";
  StartedTables();
  static host::Arena arena;
  const auto allowWriting = [](bool isAllowed) {
    for (int i = 0; i < arena.RegionCount(); ++i)
      arena.SetWritable(i, arena.RegionBytes(), isAllowed);
  };
  // Not every scene makes every kernel write: a colour may be too light to darken anything.
  bool faults = false, keeps = false;
  const uint64_t seeds = WritesNothing(GetParam()) ? 1 : 8;
  for (uint64_t seed = 1; seed <= seeds && !faults; ++seed) {
    host::Scene scene(arena, host::Choices(seed));
    scene.Measure({3, 200}, [&](const std::function<void()>& call) {
      allowWriting(false);
      keeps = KeepsRegisters(call, &faults);
      allowWriting(true);
    });
    ReferenceOf(GetParam())->exercise(GetParam().routine, scene);
    ASSERT_TRUE(keeps);
  }
  EXPECT_EQ(faults, !WritesNothing(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(AllBuilds, KernelUnwindTest, ::testing::ValuesIn(AllBuilds()),
                         [](const auto& test) { return NameOf(test.param); });

}  // namespace
}  // namespace vantrix
