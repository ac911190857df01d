// Compares every build of every kernel with the reference.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "host/services.h"
#include "tests/builds.h"
#include "tests/register_state.h"
#include "tests/started_tables.h"

namespace vantrix {
namespace {

// Whole registers of every form and a tail, a few registers, none.
constexpr host::Shape kShapes[] = {{3, 200}, {2, 33}, {1, 7}};

// Calls with the stack `shift` bytes further on: callers keep it at multiples of 16.
[[gnu::noinline]] void CallOnStack(size_t shift, const std::function<void()>& call) {
  volatile char* const room = static_cast<char*>(__builtin_alloca(shift + 16));
  *room = 0;
  call();
}

class KernelsTest : public ::testing::TestWithParam<TestedBuild> {
 protected:
  KernelsTest() : reference_(ReferenceOf(GetParam())) { StartedTables(); }
  void SetUp() override {
    ASSERT_NE(reference_, nullptr) << "a kernel without a reference";
    if (!GetParam().runsHere) GTEST_SKIP() << "not on this processor";
  }
  // Compares the build with the reference in a scene of this shape whose calls `run` makes.
  std::string CompareRun(host::Shape shape, const host::Runner& run) {
    return CompareRun(arena_, shape, run);
  }
  std::string CompareRun(host::Arena& arena, host::Shape shape, const host::Runner& run) {
    host::Scene scene(arena, host::Choices(uint64_t{1}));
    scene.Measure(shape, [&](const std::function<void()>& call) {
      host::services.polls = 0;  // results count them
      run(call);
    });
    return Compare(scene);
  }
  std::string Compare(const host::Scene& scene) {
    return host::CompareRoutines(reference_->exercise, reference_->routine, GetParam().routine,
                                 scene);
  }

  host::Arena arena_;
  const host::Reference* reference_;
};

TEST_P(KernelsTest, EqualsTheReferenceInRandomScenes) {
  for (uint64_t seed = 0; seed < 1500; ++seed)
    ASSERT_EQ(Compare(host::Scene(arena_, host::Choices(seed))), "") << "scene " << seed;
}

TEST_P(KernelsTest, EqualsTheReferenceAtEveryPlaceAndWidth) {
  for (int32_t columns = 1; columns <= 70; ++columns) {
    for (int32_t offset = 0; offset < 16; ++offset) {
      host::Scene scene(arena_, host::Choices(static_cast<uint64_t>(columns * 16 + offset)));
      scene.Pin({3, columns}, offset);
      ASSERT_EQ(Compare(scene), "") << columns << " columns, " << offset << " past a boundary";
    }
  }
}

// Registers wider than 16 bytes are saved on a stack that the kernel aligns itself.
TEST_P(KernelsTest, EqualsTheReferenceOnAnyStack) {
  for (const host::Shape shape : kShapes)
    for (const size_t shift : {0, 16, 32, 48})
      ASSERT_EQ(CompareRun(shape, [=](const auto& call) { CallOnStack(shift, call); }), "")
          << shape.columns << " columns, stack " << shift << " bytes on";
}

TEST_P(KernelsTest, LeavesTheUpperHalvesOfRegistersUnused) {
  if (!TellsUpperHalves()) GTEST_SKIP() << "this processor does not tell";
  for (const host::Shape shape : kShapes) {
    uint32_t used = 0;
    CompareRun(shape, [&](const auto& call) {
      call();
      used |= UpperHalvesInUse();
    });
    EXPECT_EQ(used, 0u) << shape.columns << " columns";
  }
}

// Planes of more than 8 MiB: these kernels ask for the next rows then.
class FarPlanesTest : public KernelsTest {};

TEST_P(FarPlanesTest, EqualTheReference) {
  constexpr size_t kRegionBytes = size_t{64} << 20;
  static host::Arena arena(8, kRegionBytes);
  EXPECT_EQ(CompareRun(arena, {62000, 136}, [](const auto& call) { call(); }), "");
}

std::vector<TestedBuild> BuildsThatPrefetch() {
  constexpr std::pair<SuiteIndex, uint16_t> kSlots[] = {
      {kFilter, 12},   {kResample, 5},  {kResample, 6}, {kResample, 13},
      {kResample, 26}, {kResample, 27}, {kSelect, 26},
  };
  std::vector<TestedBuild> builds = AllBuilds();
  std::erase_if(builds, [&](const TestedBuild& build) {
    return std::ranges::find(kSlots, std::pair(build.suite, build.slot)) == std::end(kSlots);
  });
  return builds;
}
INSTANTIATE_TEST_SUITE_P(BuildsThatPrefetch, FarPlanesTest,
                         ::testing::ValuesIn(BuildsThatPrefetch()),
                         [](const auto& test) { return NameOf(test.param); });

INSTANTIATE_TEST_SUITE_P(AllBuilds, KernelsTest, ::testing::ValuesIn(AllBuilds()),
                         [](const auto& test) { return NameOf(test.param); });

// Builds that this processor does not run are skipped, so this test prints their forms. If it is
// known which forms must run, VANTRIX_EXPECT_FORMS lists them, and exactly these must run.
TEST(FormsTest, RunWhereTheyShould) {
  std::string run, notRun;
  const auto name = [&]<class Form>() {
    (Form::RunsOn(InstructionSetsHere()) ? run : notRun) += std::string(" ") + Form::kName;
  };
  Forms::ForEach(name);
  TestForms::ForEach(name);
  std::printf("forms run here:%s; not run:%s\n", run.c_str(), notRun.c_str());
  const char* const expected = std::getenv("VANTRIX_EXPECT_FORMS");
  if (expected) {
    EXPECT_EQ(run, std::string(" ") + expected);
  }
}

TEST(InstalledTest, StandInTheTablesInTheirWidestBuildWhereTheirGateIsOpen) {
  const host::Tables& tables = StartedTables();
  const std::vector<TestedBuild> builds = AllBuilds();
  for (const TestedBuild& build : builds) {
    bool isOpen = false;
    for (const Slot& slot : host::Catalog()[build.suite].slots)
      isOpen |= slot.index == build.slot && host::ProcessorOpens(slot.gate);
    Routine expected = tables.Default(build.suite, build.slot);
    for (const TestedBuild& other : builds)
      if (isOpen && other.suite == build.suite && other.slot == build.slot && other.runsHere &&
          other.isInstalled)
        expected = other.routine;
    EXPECT_EQ(tables.Live(build.suite, build.slot), expected) << NameOf(build);
  }
}

}  // namespace
}  // namespace vantrix
