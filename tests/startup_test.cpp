// The entry point, the search for suites, and the start-up sequence.
#include "plugin/startup.h"

#include <gmock/gmock.h>
#include <xmmintrin.h>

#include <iterator>

#include "common/tables.h"
#include "plugin/base/processor.h"
#include "plugin/base/suites.h"
#include "plugin/core.h"
#include "plugin/module.h"
#include "tests/fake_host.h"
#include "tests/fake_system.h"

extern "C" vantrix::PluginMainRoutine PluginMain;

namespace vantrix {
namespace {

using ::testing::ElementsAre;

class StartupTest : public ::testing::Test {
 protected:
  StartupTest() : savedControl_(_mm_getcsr()) {
    system.SetFeatures(kMMX | kSSE | kSSE2, kSSE3 | kSSSE3 | kSSE41);
  }
  ~StartupTest() override { _mm_setcsr(savedControl_); }

  // Runs start-up on the made-up system.
  int32_t Start() {
    processorInfo.filled = 0;
    result = 99;
    return Startup(host.Block(), &result, system.Table());
  }

  FakeHost host;
  FakeSystem system;
  int16_t result = 99;

 private:
  uint32_t savedControl_;
};

TEST_F(StartupTest, SelectorsCountByTheirLowBits) {
  struct {
    int32_t selector, outcome;
  } const cases[] = {{0, 0},       {2, 0},      {0x10000, 0},      {0x70002, 0},
                     {-1, -30300}, {3, -30300}, {0x1FFFF, -30300}, {0x8000, -30300},
                     {-65536, 0}};
  for (const auto& c : cases) {
    int16_t word = 99;
    EXPECT_EQ(PluginMain(c.selector, nullptr, 0, &word), c.outcome) << c.selector;
    EXPECT_EQ(word, c.outcome) << c.selector;
  }
  EXPECT_EQ(static_cast<uint16_t>(kUnknownSelector), 0x89A4);

  int16_t word = 99;
  EXPECT_EQ(PluginMain(0x10001, host.Block(), 0, &word), 1);
  EXPECT_EQ(word, 0);
  EXPECT_FALSE(host.IsUntouched());
}

TEST_F(StartupTest, SucceedsAndSavesTheHostsDefaults) {
  EXPECT_EQ(Start(), 1);
  EXPECT_EQ(result, 0);
  EXPECT_EQ(blendSuite.live, host.Live(kBlend).data());
  EXPECT_EQ(pathSuite.live, host.Live(kPath).data());
  EXPECT_EQ(blendSuite.saved[2], host.Original(kBlend, 2));
  EXPECT_EQ(blendSuite.saved[394], host.Original(kBlend, 394));
  EXPECT_EQ(convertSuite.saved[78], host.Original(kConvert, 78));
  EXPECT_EQ(displaySuite.saved[81], host.Original(kDisplay, 81));
  EXPECT_EQ(filterSuite.saved[344], host.Original(kFilter, 344));
  EXPECT_EQ(memorySuite.saved[181], host.Original(kMemory, 181));
  EXPECT_EQ(paintSuite.saved[150], host.Original(kPaint, 150));
  EXPECT_EQ(resampleSuite.saved[61], host.Original(kResample, 61));
  EXPECT_EQ(selectSuite.saved[122], host.Original(kSelect, 122));
  EXPECT_EQ(pathSuite.saved[52], host.Original(kPath, 52));
}

// No routine of ours may be saved as the host's, or calls that are handed on would never end. What
// the host writes in between is its own.
TEST_F(StartupTest, KeepsWhatIsTheHostsWhenItRunsAgain) {
  const auto expectHosts = [&](SuiteIndex suite, const auto& acquired) {
    for (size_t slot = 0; slot < std::size(acquired.saved); ++slot)
      ASSERT_EQ(acquired.saved[slot], host.Original(suite, slot)) << suite << " " << slot;
  };
  EXPECT_THAT((std::vector{std::size(blendSuite.saved), std::size(convertSuite.saved),
                           std::size(coreSuite.saved), std::size(displaySuite.saved),
                           std::size(filterSuite.saved), std::size(memorySuite.saved),
                           std::size(paintSuite.saved), std::size(resampleSuite.saved),
                           std::size(selectSuite.saved), std::size(pathSuite.saved)}),
              ElementsAre(395, 79, 17, 82, 345, 182, 151, 62, 123, 53));
  const auto expectAllHosts = [&] {
    expectHosts(kBlend, blendSuite);
    expectHosts(kConvert, convertSuite);
    expectHosts(kCore, coreSuite);
    expectHosts(kDisplay, displaySuite);
    expectHosts(kFilter, filterSuite);
    expectHosts(kMemory, memorySuite);
    expectHosts(kPaint, paintSuite);
    expectHosts(kResample, resampleSuite);
    expectHosts(kSelect, selectSuite);
    expectHosts(kPath, pathSuite);
  };
  for (const uint64_t isDebugged : {0, 1}) {
    host.debugAnswer = isDebugged;
    EXPECT_EQ(Start(), 1);
    const auto installed = host.Live(kBlend);
    EXPECT_EQ(Start(), 1);
    EXPECT_EQ(host.Live(kBlend), installed);
    expectAllHosts();
  }
  // A start-up that fails at the last suite has acquired the others.
  const SuiteRecord last = host.records.back();
  host.records.pop_back();
  EXPECT_EQ(Start(), -1);
  expectAllHosts();

  host.records.push_back(last);
  const Routine another = host.Original(kSelect, 0);
  host.Live(kBlend)[2] = another;
  EXPECT_EQ(Start(), 1);
  EXPECT_EQ(blendSuite.saved[2], another);
}

TEST_F(StartupTest, FailsOnAnySuiteThatIsMissingOrOfAnotherVersion) {
  for (int i = 0; i < kSuiteCount; ++i) {
    for (const bool isMissing : {true, false}) {
      FakeHost fresh;
      std::fill_n(&MultiplyTable[0][0], sizeof MultiplyTable, uint8_t{0});
      if (isMissing)
        fresh.records.erase(fresh.records.begin() + i);
      else
        fresh.records[static_cast<size_t>(i)].suiteVersion += 1;
      const uint32_t control = _mm_getcsr() & ~0x8000u;
      _mm_setcsr(control);
      EXPECT_EQ(Startup(fresh.Block(), &result, system.Table()), -1) << i;
      EXPECT_EQ(result, -1);
      EXPECT_EQ(_mm_getcsr(), control);
      EXPECT_TRUE(fresh.IsUntouched()) << i;
      EXPECT_EQ(MultiplyTable[255][255], 0) << "no table is built";
      // The suites before it stay acquired.
      if (i > 0) {
        EXPECT_EQ(blendSuite.live, fresh.Live(kBlend).data());
      }
    }
  }
}

TEST_F(StartupTest, ComparesCountsAsUnsignedNumbers) {
  for (size_t i = 0; i < kSuiteCount; ++i) {
    const auto minimum = static_cast<int16_t>(kSuiteFormats[i].minimumCount);
    const struct {
      int16_t count;
      int32_t outcome;
    } cases[] = {
        {0, -1}, {static_cast<int16_t>(minimum - 1), -1}, {minimum, 1}, {-1, 1}, {-32768, 1}};
    for (const auto& c : cases) {
      FakeHost fresh;
      fresh.records[i].suiteCount = c.count;
      EXPECT_EQ(Startup(fresh.Block(), &result, system.Table()), c.outcome) << i << ' ' << c.count;
      EXPECT_EQ(fresh.IsUntouched(), c.outcome != 1);
    }
  }
}

TEST_F(StartupTest, FailsOnABlockWithoutRecords) {
  for (const int32_t count : {0, -1, INT32_MIN}) {
    const SuiteParameterBlock block{1, count};
    EXPECT_EQ(Startup(&block, &result, system.Table()), -1) << count;
  }
}

TEST_F(StartupTest, TakesTheFirstRecordThatMatches) {
  FakeHost other;
  FakeHost fresh;
  fresh.records.push_back(other.records[kMemory]);
  auto wrongVersion = other.records[kBlend];
  wrongVersion.suiteVersion = 5;
  fresh.records.insert(fresh.records.begin(), wrongVersion);
  EXPECT_EQ(Startup(fresh.Block(), &result, system.Table()), 1);
  EXPECT_EQ(memorySuite.live, fresh.Live(kMemory).data());
  EXPECT_EQ(blendSuite.live, fresh.Live(kBlend).data());
}

// The search for suites that the block does not list.
class FallBackTest : public StartupTest {
 protected:
  FallBackTest() : resample_(host.records[kResample]) {
    host.records.erase(host.records.begin() + kResample);
    host.suiteAnswer = &resample_;
    host.suiteResult = 1;
  }
  SuiteRecord resample_;
};

TEST_F(FallBackTest, AsksTheCoreSuiteUnderThePluginsKind) {
  EXPECT_EQ(Start(), 1);
  ASSERT_GE(host.queries.size(), 1u);
  EXPECT_EQ(host.queries[0].signature, Code("QXXM"));
  EXPECT_EQ(host.queries[0].selector, Code("rsmp"));
  EXPECT_EQ(resampleSuite.live, host.Live(kResample).data());
}

TEST_F(FallBackTest, IsRefusedInEachWay) {
  const auto fails = [&](const char* why) {
    EXPECT_EQ(Start(), -1) << why;
    EXPECT_TRUE(host.IsUntouched()) << why;
  };
  host.suiteResult = 0;
  fails("answered no");
  host.suiteResult = 0x100;
  fails("the boolean stands in the low byte");
  host.suiteResult = 1;
  host.suiteAnswer = nullptr;
  fails("answered without a record");
  host.suiteAnswer = &resample_;
  resample_.suiteVersion = 6;
  fails("another version");
  resample_.suiteVersion = 5;
  resample_.suiteCount = 8;
  fails("too short");
  resample_.suiteCount = 9;
  EXPECT_EQ(Start(), 1);
}

TEST_F(FallBackTest, NeedsACoreSuiteOfFiveEntriesAndTakesTheLast) {
  const SuiteParameterBlock* block = host.Block();
  EXPECT_NE(FindSuite(block, Code("rsmp"), 5), nullptr);

  SuiteRecord later = host.records[kCore];
  later.suiteCount = 4;
  host.records.push_back(later);
  EXPECT_EQ(FindSuite(host.Block(), Code("rsmp"), 5), nullptr) << "the last one is too short";
  host.records.back().suiteCount = 5;
  EXPECT_NE(FindSuite(host.Block(), Code("rsmp"), 5), nullptr);
  host.records.back().suiteCount = -1;
  EXPECT_NE(FindSuite(host.Block(), Code("rsmp"), 5), nullptr);

  for (SuiteRecord& record : host.records)
    if (record.suiteCode == Code("core")) record.suiteVersion = 3;
  EXPECT_EQ(FindSuite(host.Block(), Code("rsmp"), 5), nullptr) << "no core suite of version 4";
}

TEST_F(StartupTest, SetsFlushToZeroAndKeepsTheOtherBits) {
  for (const uint32_t before : {0x1F80u, 0x7F80u, 0x3FC0u}) {
    _mm_setcsr(before);
    system.executesSSE = true;
    Start();
    EXPECT_EQ(_mm_getcsr(), before | 0x8000);
    _mm_setcsr(before);
    system.executesSSE = false;
    Start();
    EXPECT_EQ(_mm_getcsr(), before);
  }
}

TEST_F(StartupTest, KeepsEightFlagsEachOnItsOwn) {
  system.SetVendor("GenuineIntel");
  for (int flag = 0; flag < 8; ++flag) {
    const auto is = [=](int which) { return which == flag; };
    system.SetFeatures((is(0) ? kMMX : 0) | (is(2) ? kSSE : 0) | (is(3) ? kSSE2 : 0),
                       (is(4) ? kSSE3 : 0) | (is(5) ? kSSSE3 : 0) | (is(6) ? kSSE41 : 0));
    system.executesSSE = is(1);
    system.relations.clear();
    system.AddCores(2, is(7) ? 3 : 1);
    EXPECT_EQ(Start(), 1);
    const ProcessorFeatures& has = processorFeatures;
    EXPECT_THAT(
        (std::vector<uint32_t>{has.hasMMX, has.osSupportsSSE, has.hasSSE, has.hasSSE2, has.hasSSE3,
                               has.hasSSSE3, has.hasSSE41, has.isIntelHyperThreaded}),
        ElementsAre(is(0), is(1), is(2), is(3), is(4), is(5), is(6), is(7)));
  }
}

TEST_F(StartupTest, FillsTheConstantsWithSSE2Only) {
  std::fill_n(SSE2Constants[0].bytes, sizeof SSE2Constants, uint8_t{0});
  system.SetFeatures(kMMX | kSSE, kSSSE3);
  EXPECT_EQ(Start(), 1);
  EXPECT_EQ(SSE2Constants[1].bytes[0], 0);
  system.SetFeatures(kMMX | kSSE | kSSE2, 0);
  EXPECT_EQ(Start(), 1);
  EXPECT_EQ(SSE2Constants[1].bytes[0], 0x80);
}

TEST_F(StartupTest, InstallsThePathSuiteLastAndAsksItsTwoQuestionsInOrder) {
  std::fill_n(&MultiplyTable[0][0], sizeof MultiplyTable, uint8_t{0});
  Start();
  ASSERT_EQ(host.queries.size(), 2u);
  EXPECT_EQ(host.queries[0].signature, Code("QXIM"));
  EXPECT_EQ(host.queries[0].selector, Code("pdbg"));
  EXPECT_EQ(host.queries[1].signature, Code("QXIM"));
  EXPECT_EQ(host.queries[1].selector, Code("pdgv"));
  // Core and the seven others that are written to; never the display suite.
  EXPECT_EQ(host.queries[0].installedSuites, 8);
  // Tables and flush-to-zero come before all installers.
  EXPECT_TRUE(host.queries[0].hasTables);
  EXPECT_EQ(host.queries[0].control & 0x8000, 0x8000u);
}

TEST_F(StartupTest, HooksTheNoiseBuffer) {
  Start();
  EXPECT_THAT(host.ChangedSlots(kCore), ElementsAre(3));
  uint8_t noise[64];
  const auto hook = Call<NoiseBufferRoutine>(host.Live(kCore)[3]);
  EXPECT_EQ(hook(noise, 16, 0xFFFFFFFF), 0x123456789ABCDEF0u);
  ASSERT_EQ(host.noiseCalls.size(), 1u);
  EXPECT_EQ(host.noiseCalls[0].base, noise);
  EXPECT_EQ(host.noiseCalls[0].count, 16u);
  EXPECT_EQ(host.noiseCalls[0].size, 0xFFFFFFFFu);
  EXPECT_EQ(noiseBuffer.base, noise);
  EXPECT_EQ(noiseBuffer.count, 16u);
  EXPECT_EQ(noiseBuffer.size, 0xFFFFFFFFu);
  EXPECT_EQ(reinterpret_cast<uintptr_t>(noiseBuffer.end),
            reinterpret_cast<uintptr_t>(noise) + 0xFFFFFFFFu);
}

TEST(ModuleTest, KeepsASpareHook) {
  EXPECT_EQ(GetSpareHook(), nullptr);
  int target;
  SetSpareHook(&target);
  EXPECT_EQ(GetSpareHook(), &target);
  SetSpareHook(nullptr);
}

}  // namespace
}  // namespace vantrix
