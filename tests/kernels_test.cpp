// Every build of every kernel against the host's reference routine.
#include <gtest/gtest.h>

#include "tests/builds.h"
#include "tests/started_tables.h"

namespace vantrix {
namespace {

class KernelsTest : public ::testing::TestWithParam<TestedBuild> {
 protected:
  KernelsTest() : reference_(ReferenceOf(GetParam())) { StartedTables(); }
  void SetUp() override {
    ASSERT_NE(reference_, nullptr) << "a kernel without a reference";
    if (!GetParam().runsHere) GTEST_SKIP() << "not on this processor";
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

INSTANTIATE_TEST_SUITE_P(AllBuilds, KernelsTest, ::testing::ValuesIn(AllBuilds()),
                         [](const auto& test) { return NameOf(test.param); });

TEST(InstalledTest, StandInTheTablesInTheirWidestBuildWhereTheirGateIsOpen) {
  const host::Tables& tables = StartedTables();
  const std::vector<TestedBuild> builds = AllBuilds();
  for (const TestedBuild& build : builds) {
    bool isOpen = false;
    for (const Slot& slot : host::Catalog()[build.suite].slots)
      isOpen |= slot.index == build.slot && host::ProcessorOpens(slot.gate);
    Routine expected = tables.Default(build.suite, build.slot);
    for (const TestedBuild& other : builds)
      if (isOpen && other.suite == build.suite && other.slot == build.slot && other.runsHere)
        expected = other.routine;
    EXPECT_EQ(tables.Live(build.suite, build.slot), expected) << NameOf(build);
  }
}

}  // namespace
}  // namespace vantrix
