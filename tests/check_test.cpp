// The check with tables of routines that are wrong in every way: each affects only its slot, and
// the host goes on as it was.
#include "check/check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <xmmintrin.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <thread>

#include "common/tables.h"
#include "host/paths.h"
#include "host/plugin_library.h"
#include "host/services.h"
#include "host/tables.h"
#include "plugin/base/instruction_sets.h"
#include "plugin/base/interface.h"
#include "suites/filter/signatures.h"
#include "tests/faulting.h"

namespace vantrix {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

std::string ContentsOf(const std::filesystem::path& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

// The host's routine, as in a host whose polls this program does not count.
int64_t DeviateUncounted(const uint8_t* s, uint8_t* d, int32_t rows, int32_t columns,
                         int32_t sourceStride, int32_t destinationStride) {
  constexpr int kSlot = 12;
  const int polls = host::services.polls;
  Call<DeviationRoutine>(FindReference(host::Catalog()[kFilter], kSlot)->routine)(
      s, d, rows, columns, sourceStride, destinationStride);
  host::services.polls = polls;
  return 1;
}

class CheckTest : public ::testing::Test {
 protected:
  CheckTest() {
    processorFeatures = DetectFeatures(kThisSystem);
    instructionSets = DetectInstructionSets(kThisSystem, processorFeatures);
    BuildSharedTables();
    FillSSE2Constants();
    Put(kFilter, 12, DeviateUncounted);
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
  }
  ~CheckTest() override {
    std::error_code ignored;  // a loaded library cannot be removed
    std::filesystem::remove_all(folder, ignored);
  }

  void Put(SuiteIndex suite, int slot, auto* routine) {
    RecordsOf(tables.Block())[suite].routines[slot] = reinterpret_cast<Routine>(routine);
  }
  // A few scenes are enough. A second is long enough even if other programs run, too.
  std::string Check(std::vector<std::filesystem::path> folders = {}, int scenes = 60) {
    if (folders.empty()) folders = {folder};
    return check::Check(check::HostTables(tables.Block()),
                        {.scenes = scenes, .limit = std::chrono::seconds(1), .folders = folders});
  }
  std::string Text() const { return ContentsOf(folder / "VantrixCheck.txt"); }
  std::string Page() const { return ContentsOf(folder / "VantrixCheck.html"); }
  // What the text says about a slot.
  std::string About(const std::string& slot) const {
    const std::string text = Text();
    const size_t start = text.find("\n" + slot + " ");
    if (start == text.npos) return "";
    size_t end = text.find('\n', start + 1);
    while (end != text.npos && text[end + 1] == ' ') end = text.find('\n', end + 1);
    return text.substr(start + 1, end - start);
  }

  host::Tables tables;
  // In the test's working directory: tests of other builds could use a temporary one.
  const std::filesystem::path folder =
      std::filesystem::current_path() /
      (std::string("vantrix-check-") +
       ::testing::UnitTest::GetInstance()->current_test_info()->name());
};

void DoNothing() {}
uint64_t AnswerWithJunk() { return 0x100; }
void RunNonsense() { asm volatile("ud2"); }
void DivideByZero() {
  int low = 1, high = 0;
  asm volatile("idivl %2" : "+a"(low), "+d"(high) : "r"(0) : "cc");
}
void Throw() { throw std::runtime_error("no"); }
[[noreturn]] void EndProcess() { std::_Exit(7); }

std::atomic<uint64_t> turns;
void Hang() {
  while (turns < UINT64_MAX) ++turns;
}

// Changes the first sample only.
void BlendWrongly(const uint8_t*, uint8_t* d, const uint8_t*, int32_t rows, int32_t columns,
                  int32_t, int32_t, int32_t) {
  if (rows > 0 && columns > 0) d[0] ^= 1;
}
void WriteBehindRow(const uint8_t*, uint8_t* d, int32_t rows, int32_t columns, int32_t,
                    int32_t stride) {
  if (rows > 1 && columns > 0 && stride > columns) ++d[columns];
}
// Correct, but reads past the end of its rows.
void MultiplyAndReadOn(const uint8_t* s, uint8_t* d, int32_t rows, int32_t columns,
                       int32_t sourceStride, int32_t destinationStride) {
  for (int32_t y = 0; y < rows; ++y)
    for (int32_t x = 0; x < columns; ++x) {
      const volatile uint8_t* const from = s + intptr_t{y} * sourceStride + x;
      uint8_t& sample = d[intptr_t{y} * destinationStride + x];
      sample = static_cast<uint8_t>(MultiplyTable[from[0]][sample] + 0 * from[15]);
    }
}
// Correct, but starts from the right: what overlapping planes give depends on the order of samples.
void MultiplyFromTheRight(const uint8_t* s, uint8_t* d, int32_t rows, int32_t columns,
                          int32_t sourceStride, int32_t destinationStride) {
  for (int32_t y = 0; y < rows; ++y)
    for (int32_t x = columns - 1; x >= 0; --x) {
      uint8_t& sample = d[intptr_t{y} * destinationStride + x];
      sample = MultiplyTable[s[intptr_t{y} * sourceStride + x]][sample];
    }
}

// Named so that it runs first, while no thread is halted.
using CheckDeathTest = CheckTest;

TEST_F(CheckDeathTest, NamesTheSlotThatEndsTheProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  Put(kBlend, 22, EndProcess);
  EXPECT_EXIT(Check(), ::testing::ExitedWithCode(7), "");
  EXPECT_THAT(Text(), AllOf(HasSubstr("\nblnd:11 BlendLightenColorMasked8: equal in "),
                            EndsWith("\nblnd:22 BlendMultiplyMasked8: ")));
  EXPECT_THAT(Page(), EndsWith("The process ended while this slot was tried.</td>\n"));
}

TEST_F(CheckTest, ReportsEverySlotOfAHostThatIsTheSame) {
  EXPECT_THAT(Check(), HasSubstr("65 slots: 64 equal, 0 different, 0 faulted, 1 not tried"));
  EXPECT_THAT(Text(), EndsWith("The check came to its end.\n"));
  EXPECT_LT(Text().find("\nsele:26 "), Text().find("\nblnd:96 ")) << "decided ones are tried last";
  EXPECT_THAT(Page(), AllOf(HasSubstr("64 equal"), EndsWith("</html>\n")));
}

TEST_F(CheckTest, TellsWhatDiffers) {
  Put(kBlend, 2, BlendWrongly);
  Put(kBlend, 24, MultiplyFromTheRight);
  Put(kMemory, 17, AnswerWithJunk);
  Put(kResample, 24, DoNothing);
  EXPECT_THAT(Check({}, 500), HasSubstr("60 equal, 4 different, 0 faulted"));
  EXPECT_THAT(About("blnd:2"),
              AllOf(HasSubstr("in every form"), HasSubstr("destination, row 0, sample "),
                    HasSubstr(": the host's result is "), HasSubstr(", ours "),
                    HasSubstr("called with source at .."), HasSubstr("before: mask, row 0")));
  EXPECT_THAT(About("blnd:24"),
              AllOf(HasSubstr(": different in 0 of "), HasSubstr("planes give was decided here")));
  EXPECT_THAT(About("memo:17"), HasSubstr("result: the host's result is "));
  EXPECT_THAT(Text(), HasSubstr("\n    Decided here: The order of the arguments"));
}

TEST_F(CheckTest, GoesOnAfterWhateverARoutineDoes) {
  Put(kBlend, 2, TouchNull);
  Put(kBlend, 3, RunNonsense);
  Put(kBlend, 7, DivideByZero);
  Put(kBlend, 8, Throw);
  Put(kBlend, 10, FillStack);
  Put(kBlend, 24, MultiplyAndReadOn);
  Put(kBlend, 27, Routine{});
  Put(kBlend, 28, WriteBehindRow);
  Put(kResample, 24, TouchNull);
  EXPECT_THAT(Check(), HasSubstr("55 equal, 0 different, 8 faulted, 2 not tried"));
  EXPECT_THAT(About("blnd:2"), HasSubstr("faulted as the host's routine touched memory"));
  EXPECT_THAT(About("blnd:2"), HasSubstr(", in scene 0, called with source at .."));
  EXPECT_THAT(About("blnd:3"), HasSubstr("does not know"));
  EXPECT_THAT(About("blnd:7"), HasSubstr("divided by 0"));
  EXPECT_THAT(About("blnd:8"), HasSubstr("threw an exception"));
  EXPECT_THAT(About("blnd:10"), HasSubstr("faulted"));
  EXPECT_THAT(About("blnd:24"), HasSubstr(" scenes. Without them equal in "));
  EXPECT_THAT(About("blnd:28"), HasSubstr("wrote beside its planes: plane 0, row 0"));
  EXPECT_THAT(About("rsmp:24"), HasSubstr("faulted as the host's routine touched memory"));
  EXPECT_THAT(About("blnd:27"), HasSubstr("the host has no routine there"));
}

TEST_F(CheckTest, LeavesARoutineBehindThatDoesNotReturn) {
  Put(kBlend, 2, Hang);
  EXPECT_THAT(Check(), HasSubstr("63 equal, 0 different, 1 faulted"));
  EXPECT_THAT(About("blnd:2"), HasSubstr("did not return within 1000 ms, in scene 0"));
  EXPECT_THAT(Text(), HasSubstr("1 of the check's threads stand still"));
  const uint64_t before = turns;
  EXPECT_GT(before, 0u);
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_EQ(turns, before) << "it runs on";
}

TEST_F(CheckTest, LeavesTheHostAsItWas) {
  Put(kBlend, 2, TouchNull);
  Put(kBlend, 3, Hang);
  std::vector<Routine> before, after;
  const auto routines = [&] {
    std::vector<Routine> all;
    for (int suite = 0; suite < kSuiteCount; ++suite)
      for (size_t slot = 0; slot < kSuiteFormats[suite].savedEntries; ++slot)
        all.push_back(RecordsOf(tables.Block())[suite].routines[slot]);
    return all;
  };
  before = routines();
  const int polls = host::services.polls;
  const uint32_t control = _mm_getcsr();
  const auto handler = [](int) {};
  for (const int signal : {SIGSEGV, SIGILL, SIGFPE}) std::signal(signal, handler);
  Check();
  for (const int signal : {SIGSEGV, SIGILL, SIGFPE})
    EXPECT_EQ(std::signal(signal, SIG_DFL), static_cast<void (*)(int)>(handler));
  EXPECT_EQ(_mm_getcsr(), control);
  EXPECT_EQ(host::services.polls, polls) << "the host's thread was not polled";
  EXPECT_EQ(routines(), before);
}

TEST_F(CheckTest, WritesWhereItCan) {
  EXPECT_THAT(Check({folder / "nowhere", folder}), HasSubstr("64 equal"));
  EXPECT_THAT(Text(), Not(testing::IsEmpty()));
  EXPECT_THAT(Check({folder / "nowhere"}), HasSubstr("nothing was tried"));
}

TEST_F(CheckTest, TriesNoRoutineOfAPlugin) {
  std::string error;
  const auto plugin = host::LoadPlugin(VANTRIX_LIBRARY, &error);
  ASSERT_NE(plugin, nullptr) << error;
  const uint32_t control = _mm_getcsr();
  int16_t result;
  EXPECT_EQ(plugin(kStartUp, tables.Block(), 0, &result), 1);
  _mm_setcsr(control);
  EXPECT_THAT(Check(), HasSubstr("0 equal, 0 different, 0 faulted, 65 not tried"));
  EXPECT_THAT(About("blnd:2"), HasSubstr("a plug-in's routine stands there"));
}

TEST_F(CheckTest, TriesNoFillArraysWhereTheHostGuardsThem) {
  host::services.debugsPaths = true;
  Check();
  host::services.debugsPaths = false;
  EXPECT_THAT(About("path:24"), HasSubstr("not tried as the host debugs paths"));
}

TEST_F(CheckTest, StartsAsThePluginDoes) {
  const std::filesystem::path copy = folder / host::PathOf(VANTRIX_CHECK_LIBRARY).filename();
  std::filesystem::copy_file(host::PathOf(VANTRIX_CHECK_LIBRARY), copy);
  std::string error;
  const auto check = host::LoadPlugin(copy, &error);
  ASSERT_NE(check, nullptr) << error;
  int16_t result = 99;
  EXPECT_EQ(check(kAbout, nullptr, 0, &result), 0);
  EXPECT_EQ(result, 0);
  EXPECT_EQ(check(3, nullptr, 0, &result), kUnknownSelector);
  EXPECT_EQ(result, kUnknownSelector);
  auto* const head = const_cast<SuiteParameterBlock*>(tables.Block());
  --head->recordCount;
  EXPECT_EQ(check(kStartUp, head, 0, &result), -1);
  EXPECT_EQ(result, -1);
  EXPECT_EQ(Text(), "");

  ++head->recordCount;
  const uint32_t control = _mm_getcsr();
  const int reports = host::services.reports;
  EXPECT_EQ(check(kStartUp, head, 0, &result), 1);
  EXPECT_EQ(result, 0);
  EXPECT_EQ(_mm_getcsr(), control);
  EXPECT_EQ(host::services.reports, reports + 1);
  EXPECT_FALSE(tables.IsChanged(kBlend, 2));
  EXPECT_THAT(Text(), AllOf(StartsWith("Vantrix check\n"), HasSubstr(" 64 equal, ")));
}

}  // namespace
}  // namespace vantrix
