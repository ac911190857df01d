// Which slots change on which processor, and in which form. The numbers are listed here again, on
// their own, so that a mistake in a table shows.
#include <gmock/gmock.h>
#include <xmmintrin.h>

#include <algorithm>
#include <map>

#include "plugin/base/processor.h"
#include "plugin/core.h"
#include "plugin/install.h"
#include "plugin/startup.h"
#include "tests/builds.h"
#include "tests/fake_host.h"
#include "tests/fake_system.h"

namespace vantrix {
namespace {

using Slots = std::vector<int>;

const Slots kBlendSSE = {26, 27, 47, 48, 49, 50, 51, 52, 57, 58, 59};
const Slots kBlendSSE2 = {1,   2,   3,   7,   8,   10,  11,  22,  24,  28,  29,  30,  31,  53,  54,
                          56,  66,  74,  75,  96,  97,  106, 115, 191, 192, 193, 194, 195, 198, 216,
                          218, 219, 221, 222, 223, 235, 259, 275, 276, 277, 278, 289, 320};
const Slots kFilterSSE2 = {28, 31, 75, 74, 106, 189, 188, 191, 192, 193, 194, 195, 197};
const Slots kFilterSSE41 = {200, 201, 202, 155};
const Slots kMemorySSE2 = {0, 1, 3, 4, 11, 17, 18, 65, 66, 67, 83, 102, 136};
const Slots kPaintSSE2 = {4,  5,  7,  9,  10, 13, 17, 18, 24, 25, 26, 27, 28,
                          29, 34, 35, 36, 37, 38, 55, 56, 57, 58, 59, 60, 61,
                          62, 63, 79, 81, 84, 85, 86, 87, 88, 89, 92};
const Slots kResampleSSE = {7, 5, 6, 18, 19, 24, 13};
const Slots kResampleSSE2 = {5, 6, 3, 27};

Slots Join(std::initializer_list<Slots> parts) {
  Slots all;
  for (const Slots& part : parts) all.insert(all.end(), part.begin(), part.end());
  std::sort(all.begin(), all.end());
  all.erase(std::unique(all.begin(), all.end()), all.end());
  return all;
}

struct Processor {
  bool sse, sse2, ssse3, sse41;
  int wide;  // bytes of the widest registers that it has and its system saves
  bool mmx = false, executesSSE = true, sse3 = false, isHyperThreaded = false;  // open no gate

  bool Runs(const std::string& form) const {
    const bool hasOlder = sse2 && ssse3 && sse41;
    return form == "scalar" || (form == "SSE2" && sse2) || (form == "SSSE3" && ssse3) ||
           (form == "AVX2" && hasOlder && wide >= 32) ||
           (form == "AVX512" && hasOlder && wide >= 64);
  }
};

void Play(const Processor& has, FakeSystem& system) {
  // With wide registers, all bits except the flags.
  const uint32_t others = has.wide > 16 ? ~(kSSE3 | kSSSE3 | kSSE41) : 0;
  system.SetFeatures(
      (has.mmx ? kMMX : 0) | (has.sse ? kSSE : 0) | (has.sse2 ? kSSE2 : 0),
      others | (has.sse3 ? kSSE3 : 0) | (has.ssse3 ? kSSSE3 : 0) | (has.sse41 ? kSSE41 : 0));
  system.executesSSE = has.executesSSE;
  system.SetVendor("GenuineIntel");
  system.AddCores(1, has.isHyperThreaded ? 3 : 1);
  if (has.wide == 16) return;
  system.leaves[0].eax = 7;
  system.leaves[7] = {.eax = 0, .ebx = ~0u, .ecx = ~0u, .edx = 0};
  system.enabledState = has.wide == 32 ? 0x07 : 0xE7;
}

// Expects in each slot of ours the last of its builds that the processor runs.
void ExpectWidestBuilds(FakeHost& host, const Processor& has) {
  std::map<std::pair<SuiteIndex, int>, std::pair<Routine, const char*>> widest;
  for (const TestedBuild& build : AllBuilds())
    if (build.isInstalled && has.Runs(build.form))
      widest[{build.suite, build.slot}] = {build.routine, build.form};
  size_t found = 0;
  for (const auto& [place, build] : widest) {
    const auto [suite, slot] = place;
    const Routine live = host.Live(suite)[slot];
    if (live == host.Original(suite, slot)) continue;  // its gate is closed
    EXPECT_EQ(live, build.first) << host::Catalog()[suite].name << ' ' << slot << ' '
                                 << build.second;
    ++found;
  }
  if (has.sse && has.sse2 && has.sse41) {
    EXPECT_EQ(found, widest.size());
  }
}

void ExpectSlots(const Processor& has) {
  const auto [sse, sse2, ssse3, sse41, wide, mmx, executesSSE, sse3, isHyperThreaded] = has;
  SCOPED_TRACE(testing::Message() << "SSE " << sse << " SSE2 " << sse2 << " SSSE3 " << ssse3
                                  << " SSE4.1 " << sse41 << ", " << wide << " bytes; MMX " << mmx
                                  << " executes SSE " << executesSSE << " SSE3 " << sse3
                                  << " hyper-threaded " << isHyperThreaded);
  FakeHost host;
  FakeSystem system;
  Play(has, system);
  processorInfo.filled = 0;
  int16_t result;
  const uint32_t control = _mm_getcsr();
  ASSERT_EQ(Startup(host.Block(), &result, system.Table()), 1);
  _mm_setcsr(control);
  ExpectWidestBuilds(host, has);

  const auto when = [](bool condition, const Slots& slots) { return condition ? slots : Slots{}; };
  EXPECT_EQ(host.ChangedSlots(kBlend), Join({when(sse, kBlendSSE), when(sse2, kBlendSSE2)}));
  EXPECT_EQ(host.ChangedSlots(kConvert), Join({{19}, when(sse2, {16, 17, 18, 58})}));
  EXPECT_EQ(host.ChangedSlots(kCore), Slots{3});
  EXPECT_EQ(host.ChangedSlots(kDisplay), Slots{});
  EXPECT_EQ(host.ChangedSlots(kFilter),
            Join({{12}, when(sse, {34}), when(sse2, kFilterSSE2), when(sse41, kFilterSSE41)}));
  EXPECT_EQ(host.ChangedSlots(kMemory), sse2 ? kMemorySSE2 : when(ssse3, {0, 1}));
  EXPECT_EQ(host.ChangedSlots(kPaint), when(sse2, kPaintSSE2));
  EXPECT_EQ(host.ChangedSlots(kResample),
            Join({when(sse, kResampleSSE), when(sse2, kResampleSSE2), when(sse41, {26})}));
  EXPECT_EQ(host.ChangedSlots(kSelect), Join({{26}, when(sse2, {33, 35, 73, 75})}));
  EXPECT_EQ(host.ChangedSlots(kPath), (Slots{24, 46, 47}));
}

TEST(SlotsTest, ChangeAsTheFlagsSayEachOnItsOwn) {
  EXPECT_EQ(kBlendSSE.size(), 11u);
  EXPECT_EQ(kBlendSSE.size() + kBlendSSE2.size(), 54u);
  EXPECT_EQ(kPaintSSE2.size(), 37u);
  for (const int wide : {16, 32, 64})
    for (int flags = 0; flags < 256; ++flags) {
      const auto has = [=](int flag) { return (flags >> flag & 1) != 0; };
      ExpectSlots({has(0), has(1), has(2), has(3), wide, has(4), has(5), has(6), has(7)});
    }
}

// Start-up returns what the last of them returns.
TEST(InstallersTest, AnswerOne) {
  FakeHost host;
  int16_t result;
  const uint32_t control = _mm_getcsr();
  ASSERT_EQ(Startup(host.Block(), &result, FakeSystem().Table()), 1);
  _mm_setcsr(control);
  for (Installer* install : kInstallers) EXPECT_EQ(install(host.Block()), 1);
}

// Kernels of two slots: one in every form, one in forms up to 16 bytes, which leaves Ssse3 out.
template <class Form>
void InForm() {}
struct MadeUpKernels {
  template <class Form>
  static Builds In() {
    static constexpr Build kBuilds[] = {
        {7, Entry<InForm<Form>>},
        {9, AtMost<Form, 16>([]<class F>(F) { return Entry<InForm<F>>; })},
    };
    return kBuilds;
  }
};

TEST(WidestBuildTest, IsTheWidestThatTheProcessorRuns) {
  InstructionSets has;
  const auto expect = [&](RoutineGetter ofAll, RoutineGetter ofNarrow) {
    EXPECT_EQ(WidestBuild<MadeUpKernels>(7, has), ofAll);
    EXPECT_EQ(WidestBuild<MadeUpKernels>(9, has), ofNarrow);
    EXPECT_EQ(WidestBuild<MadeUpKernels>(8, has), nullptr);
  };
  expect(Entry<InForm<Scalar>>, Entry<InForm<Scalar>>);
  has.sse2 = true;
  expect(Entry<InForm<Sse2>>, Entry<InForm<Sse2>>);
  has.ssse3 = true;
  expect(Entry<InForm<Ssse3>>, Entry<InForm<Sse2>>);
  has.avx2 = true;
  expect(Entry<InForm<Avx2>>, Entry<InForm<Sse2>>);
  has.avx512 = true;
  expect(Entry<InForm<Avx512>>, Entry<InForm<Sse2>>);
  has.avx2 = false;
  expect(Entry<InForm<Avx512>>, Entry<InForm<Sse2>>);
}

}  // namespace
}  // namespace vantrix
