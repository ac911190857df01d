// The path suite: what start-up asks and installs, and fill arrays of any contents.
#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <random>
#include <regex>

#include "host/exercise/exercises.h"
#include "host/fill_array.h"
#include "host/reference/reference.h"
#include "plugin/base/suites.h"
#include "plugin/install.h"
#include "suites/memory/copy.h"
#include "suites/path/debug.h"
#include "suites/path/fill_array.h"
#include "tests/fake_host.h"
#include "tests/path_model.h"

namespace vantrix {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Report = FakeHost::Report;

constexpr char kFile[] = "../sources/CommonPathLoops";

class PathInstallTest : public ::testing::Test {
 protected:
  ~PathInstallTest() override { PathDebugEnabled = 0, PathDebugGuardValue = 0; }

  // Runs the installer with the host's present answers.
  // Returns whether slot 24 is the checked routine.
  bool Install() {
    coreSuite.live = host.Live(kCore).data();
    pathSuite.live = host.Live(kPath).data();
    EXPECT_EQ(InstallPathRoutines(host.Block()), 1);
    EXPECT_THAT(host.ChangedSlots(kPath), ElementsAre(24, 46, 47));
    const Routine installed = host.Live(kPath)[24];
    const bool isChecked = installed == AsRoutine(ApplyFillArrayOperationChecked);
    const auto& plain = FoldRoutines(false);
    EXPECT_TRUE(isChecked ||
                std::ranges::find(plain, Call<FillArrayRoutine>(installed)) != plain.end());
    return isChecked;
  }

  FakeHost host;
};

TEST_F(PathInstallTest, InstallsThePlainFormWhereTheHostDoesNotDebug) {
  host.guardAnswer = 0x1234;
  EXPECT_FALSE(Install());
  EXPECT_EQ(PathDebugEnabled, 0);
  EXPECT_EQ(PathDebugGuardValue, 0u);
  EXPECT_EQ(host.queries.size(), 2u);

  // A host that knows neither question, and a guard value that is too big: nothing is reported.
  host.debugResult = host.guardResult = 0;
  host.guardAnswer = 0x100000000;
  EXPECT_FALSE(Install());
  EXPECT_THAT(host.reports, IsEmpty());
}

TEST_F(PathInstallTest, InstallsTheCheckedFormWhereItDoes) {
  host.debugAnswer = 1;
  EXPECT_TRUE(Install());
  EXPECT_EQ(PathDebugEnabled, 1);
  EXPECT_EQ(PathDebugGuardValue, 0u) << "arrays need not be guarded";

  host.debugAnswer = 0x8000000000000000;  // any bit will do
  host.guardAnswer = 0xFFFFFFFE;
  EXPECT_TRUE(Install());
  EXPECT_EQ(PathDebugEnabled, 1);
  EXPECT_EQ(PathDebugGuardValue, 0xFFFFFFFEu);
  EXPECT_THAT(host.reports, IsEmpty());
}

TEST_F(PathInstallTest, ReportsAnswersThatDoNotFitTogetherAndInstallsAllTheSame) {
  const Report noDebug{"Path debug enabled gestalt, 'pdbg' not recognized", kFile, 286, 1};
  const Report noGuard{"Path debug guard value gestalt, 'pdgv' not recognized", kFile, 287, 1};
  const Report tooBig{"Path debug guard value is bigger than expected", kFile, 288, 1};
  host.debugAnswer = 1;
  const struct {
    uint32_t debugResult, guardResult;
    uint64_t guardAnswer;
    std::vector<Report> reports;
  } cases[] = {
      {0, 1, 5, {noDebug}},
      {0x100, 0xFFFFFF01, 5, {noDebug}},  // the boolean is in the low byte
      {1, 0, 5, {noGuard}},
      {1, 1, 0xFFFFFFFF, {tooBig}},
      {1, 1, 0x7FFFFFFF00000002, {tooBig}},
      {1, 1, 0x8000000000000003, {}},  // negative
      {0, 0, 0xFFFFFFFF, {noDebug, noGuard, tooBig}},
  };
  for (const auto& c : cases) {
    host.debugResult = c.debugResult;
    host.guardResult = c.guardResult;
    host.guardAnswer = c.guardAnswer;
    host.reports.clear();
    EXPECT_TRUE(Install());
    EXPECT_EQ(host.reports, c.reports) << c.guardAnswer;
    EXPECT_EQ(PathDebugGuardValue, static_cast<uint32_t>(c.guardAnswer));
  }
}

// A pending entry: position and direction. Fold() folds one row with every routine.
struct Crossing {
  uint32_t position;
  bool isUpward;
};
using Spans = std::vector<uint32_t>;

Spans Fold(const Spans& settled, const std::vector<Crossing>& pending, uint32_t operation,
           bool byWinding) {
  static Routine memory[] = {AsRoutine(CopyBytes<Sse2>)};
  memorySuite.live = memory;
  std::vector<Spans> results;
  std::vector<FillArrayRoutine*> routines = FoldRoutines(false);
  routines.push_back(ApplyFillArrayOperationChecked);
  for (FillArrayRoutine* fold : routines) {
    host::FillArrayBlock block(-7, 1, 14);
    block.Row(0)[kEntryCount] = static_cast<uint32_t>(settled.size());
    std::copy(settled.begin(), settled.end(), block.Row(0) + kFirstEntry);
    for (const Crossing& crossing : pending)
      host::AddCrossing(block.Array(), 0, crossing.position, crossing.isUpward);
    fold(block.Array(), operation, byWinding);
    EXPECT_EQ(block.Row(0)[kPendingCount], 0u);
    results.push_back(block.Spans(0));
  }
  EXPECT_THAT(results, Each(results.front()));
  return results.front();
}

TEST(FillArrayTest, ResolvesCrossingsByEitherRule) {
  const std::vector<Crossing> nested{{12, false}, {4, true}, {8, false}, {6, true}};
  EXPECT_EQ(Fold({}, nested, kUnion, true), (Spans{4, 12}));
  EXPECT_EQ(Fold({}, nested, kUnion, false), (Spans{4, 6, 8, 12}));
  // The other way round is the same shape; a second span begins where the first ends.
  EXPECT_EQ(Fold({}, {{4, false}, {9, true}, {9, false}, {20, true}}, kUnion, true),
            (Spans{4, 20}));
  // Both at one position: nothing between them.
  EXPECT_EQ(Fold({1, 3}, {{10, true}, {10, false}}, kUnion, false), (Spans{1, 3}));
  EXPECT_EQ(Fold({1, 3}, {{10, true}, {10, false}}, kUnion, true), (Spans{1, 3}));
  // Of three at one position one is left.
  EXPECT_EQ(Fold({}, {{5, true}, {5, false}, {5, true}, {9, false}}, kUnion, false), (Spans{5, 9}));
}

TEST(FillArrayTest, CombinesWithWhatTheRowHeld) {
  const std::vector<Crossing> span{{5, true}, {10, false}};
  EXPECT_EQ(Fold({2, 8}, span, kUnion, true), (Spans{2, 10}));
  EXPECT_EQ(Fold({2, 8}, span, kSubtract, true), (Spans{2, 5}));
  EXPECT_EQ(Fold({2, 8}, span, kIntersect, true), (Spans{5, 8}));
  EXPECT_EQ(Fold({2, 8}, span, kExclusiveOr, true), (Spans{2, 5, 8, 10}));
  EXPECT_EQ(Fold({2, 8}, span, 4, true), (Spans{2, 8}));
  EXPECT_EQ(Fold({2, 8}, span, 0xFFFFFFFF, true), (Spans{2, 8}));
  // If one ends where the other begins, they join.
  EXPECT_EQ(Fold({2, 5}, {{5, true}, {9, false}}, kUnion, false), (Spans{2, 9}));
  EXPECT_EQ(Fold({2, 5}, {{5, true}, {9, false}}, kIntersect, false), (Spans{}));
  // Without pending entries only an intersection changes a row.
  EXPECT_EQ(Fold({2, 8}, {}, kIntersect, true), (Spans{}));
  for (const uint32_t operation : {0u, 1u, 3u, 7u})
    EXPECT_EQ(Fold({2, 8}, {}, operation, true), (Spans{2, 8}));
}

TEST(FillArrayTest, EqualsTheReferenceInTheCheckedForm) {
  static Routine memory[] = {AsRoutine(CopyBytes<Sse2>)};
  memorySuite.live = memory;
  host::Arena arena;
  const host::Reference& reference = host::PathReferences()[0];
  for (uint64_t seed = 0; seed < 1500; ++seed)
    ASSERT_EQ(host::CompareRoutines(reference.exercise, reference.routine,
                                    AsRoutine(ApplyFillArrayOperationChecked),
                                    host::Scene(arena, host::Choices(seed))),
              "")
        << seed;
}

PathOutcome RunOnce(const PathCase& call) {
  return CallRoutine(call, FoldRoutines(call.isChecked).back());
}

TEST(FillArrayTest, FoldsAndReportsArraysOfAnyContentsAsTheModelDoes) {
  for (uint64_t seed = 0; seed < 40000; ++seed) {
    host::Choices choose(seed);
    ASSERT_EQ(ComparePathCase(ChoosePathCase(choose)), "") << seed;
  }
}

// The random calls above provoke every message that a call
// can provoke. This test checks that, with line and flag.
TEST(FillArrayTest, MakesEveryReportThereIs) {
  std::vector<Report> made;
  for (uint64_t seed = 0; seed < 4000; ++seed) {
    host::Choices choose(seed);
    for (Report& report : RunOnce(ChoosePathCase(choose)).reports)
      if (std::find(made.begin(), made.end(), report) == made.end())
        made.push_back(std::move(report));
  }
  const char kCrossings[] =
      "VerifyPathFillArray crossings buffer guard mismatch, possible buffer overwrite";
  const char kCalc[] = "VerifyPathFillArray calc buffer guard mismatch, possible buffer overwrite";
  std::vector<Report> all{
      {"CApplyFillArrayOperation Unexpected operation code. -Tavik", kFile, 671, 1},
      {"ValidateFillArray: count too large.", kFile, 676, 1},
      {"ValidateFillArray: count is negative.", kFile, 676, 1},
      {"ValidateFillArray: Up does not match down.", kFile, 676, 1},
      {"ApplyFillArrayOperation rows <= 0", kFile, 680, 1},
      {"WARNING - illegal value for row count", kFile, 695, 0},
      {"ApplyFillArrayOperation Odd number of entries. (0)", kFile, 712, 1},
      {"CApplyFillArrayOperation Odd number of entries. (1)", kFile, 799, 1},
      {"CApplyFillArrayOperation Odd number of entries. (2)", kFile, 821, 1},
      {"WARNING - illegal value for old row count", kFile, 823, 0},
      {"CApplyFillArrayOperation Too many entries.", kFile, 863, 1},
      {"CApplyFillArrayOperation Too many entries. (2)", kFile, 884, 1},
      {"CApplyFillArrayOperation Too many entries. (3)", kFile, 905, 1},
      {"CApplyFillArrayOperation Odd number of entries. (3)", kFile, 920, 1},
  };
  for (const int32_t line : {676, 721, 795, 914, 932}) {
    all.push_back({kCrossings, kFile, line, 1});
    all.push_back({kCalc, kFile, line, 1});
  }
  EXPECT_THAT(made, ::testing::UnorderedElementsAreArray(all));
}

TEST(FillArrayTest, TakesRowsThatAreFarApartForWhatTheyAre) {
  // The difference of the bounds does not fit 32 bits: there are no rows at all.
  PathCase call;
  call.isChecked = call.isDebugging = true;
  call.words.assign(26 + 4, 7);
  call.words[1] = 0x7FFFFFFF;
  call.words[3] = 0x80000000;
  call.words[5] = 4;
  const PathOutcome outcome = RunOnce(call);
  EXPECT_EQ(outcome.words, call.words);
  EXPECT_EQ(outcome.reports,
            (std::vector<Report>{{"ApplyFillArrayOperation rows <= 0", kFile, 680, 1}}));
}

// Reports are part of the contract with hosts, even those that cannot be provoked. Their texts and
// lines are listed here again.
TEST(FillArrayTest, HasTheTextsAndLinesThatHostsKnow) {
  const std::vector<std::pair<std::string, int>> expected = {
      {"WARNING - illegal value for row count", 695},
      {"ApplyFillArrayOperation Odd number of entries. (0)", 712},
      {"", 721},
      {"Pointer arithmetic uint32 overflow", 768},
      {"", 795},
      {"Pointer arithmetic uint32 overflow", 797},
      {"CApplyFillArrayOperation Odd number of entries. (1)", 799},
      {"WARNING - illegal value for new row count", 801},
      {"CApplyFillArrayOperation Logic is confused about state. -Tavik", 811},
      {"CApplyFillArrayOperation Odd number of entries. (2)", 821},
      {"WARNING - illegal value for old row count", 823},
      {"", 914},
      {"Pointer arithmetic uint32 overflow", 918},
      {"CApplyFillArrayOperation Odd number of entries. (3)", 920},
      {"WARNING - illegal result value for row count", 922},
      {"", 932},
      {"CApplyFillArrayOperation Unexpected operation code. -Tavik", 671},
      {"", 676},
      {"ApplyFillArrayOperation rows <= 0", 680},
      {"CApplyFillArrayOperation Entries don't match.", 850},
      {"CApplyFillArrayOperation Too many entries.", 863},
      {"CApplyFillArrayOperation Too many entries. (2)", 884},
      {"CApplyFillArrayOperation Too many entries. (3)", 905},
  };
  const std::regex report("(?:\"([^\"]*)\",\\s*|VerifyGuards\\(|Validate\\()(\\d+)\\)");
  std::vector<std::pair<std::string, int>> found;
  for (const char* name : {"fill_array.inl", "merge.h"}) {
    std::ifstream file(std::string(VANTRIX_SOURCE_DIR "/suites/path/") + name);
    const std::string text((std::istreambuf_iterator<char>(file)), {});
    for (std::sregex_iterator i(text.begin(), text.end(), report), end; i != end; ++i)
      found.emplace_back((*i)[1], std::stoi((*i)[2]));
  }
  EXPECT_EQ(found, expected);
}

TEST(FillArrayTest, NamesTheCallersFileAndLineInItsChecks) {
  FakeHost host;
  coreSuite.live = host.Live(kCore).data();
  PathDebugGuardValue = 0xABCD;
  host::FillArrayBlock block(0, 2, 8, 0xABCD);
  block.Row(1)[kPendingCount] = 8;
  ValidateFillArray(block.Array(), "elsewhere", 12);
  // The eight words up to the row's end are six zeros, the
  // pending count itself and the settled count before it.
  EXPECT_EQ(host.reports, (std::vector<Report>{
                              {"ValidateFillArray: count too large.", "elsewhere", 12, 1},
                              {"ValidateFillArray: Up does not match down.", "elsewhere", 12, 1}}));
  host.reports.clear();
  *block.Row(2) = 0xABCE;
  VerifyPathFillArray(block.Array(), "there", 34);
  ASSERT_EQ(host.reports.size(), 1u);
  EXPECT_EQ(host.reports[0].sourceFile, "there");
  EXPECT_EQ(host.reports[0].line, 34);
  PathDebugGuardValue = 0;
}

// Positions that differ stay as they are by the even-odd rule, and an empty row takes them over.
// Returns the row that the fold leaves of them.
Spans SortedBy(FillArrayRoutine* fold, const Spans& positions) {
  static Routine memory[] = {AsRoutine(CopyBytes<Sse2>)};
  memorySuite.live = memory;
  host::FillArrayBlock block(0, 1, static_cast<int32_t>(positions.size()) + 2);
  for (const uint32_t position : positions) host::AddCrossing(block.Array(), 0, position, false);
  fold(block.Array(), kUnion, 0);
  return block.Spans(0);
}

// Networks of any size: every number of words, in orders of each kind. The highest bit of an entry
// counts like the others.
TEST(SortTest, SortsAnyNumberOfCrossingsInEveryForm) {
  std::mt19937 random(1);
  for (FillArrayRoutine* const fold : FoldRoutines(false))
    for (uint32_t count = 1; count < 3000; count += count < 300 ? 1 : 127)
      for (const uint32_t bit : {0u, 7u, 15u, 23u, 30u}) {
        Spans positions(count);
        for (uint32_t i = 0; i < count; ++i)
          positions[i] = i ^ (static_cast<uint32_t>(random()) & 1) << bit;
        std::ranges::sort(positions);
        positions.erase(std::ranges::unique(positions).begin(), positions.end());
        const Spans expected = positions;
        std::ranges::shuffle(positions, random);
        ASSERT_EQ(SortedBy(fold, positions), expected) << count << ' ' << bit;
        std::ranges::reverse(positions);
        ASSERT_EQ(SortedBy(fold, positions), expected) << count << ' ' << bit;
      }
}

// A network that sorts every row of zeros and ones sorts everything. Here words are told apart by
// what follows the zero or the one.
TEST(SortTest, SortsEveryRowOfNoughtsAndOnes) {
  for (FillArrayRoutine* const fold : FoldRoutines(false))
    for (uint32_t count = 1; count <= 16; ++count)
      for (uint32_t ones = 0; ones < 1u << count; ones += count < 12 ? 1 : 5) {
        Spans positions(count);
        for (uint32_t i = 0; i < count; ++i) positions[i] = (ones >> i & 1) << 30 | i;
        Spans expected = positions;
        std::ranges::sort(expected);
        ASSERT_EQ(SortedBy(fold, positions), expected) << count << ' ' << ones;
      }
}

}  // namespace
}  // namespace vantrix
