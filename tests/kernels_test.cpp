// Every build of every kernel against the host's reference routine.
#include <gtest/gtest.h>
#include <xmmintrin.h>

#include "host/tables.h"
#include "plugin/startup.h"
#include "tests/builds.h"

namespace vantrix {
namespace {

// The plug-in started in this program, on the demonstration host's tables.
const host::Tables& StartedTables() {
  static const host::Tables* const tables = [] {
    const auto* made = new host::Tables;
    int16_t result;
    const uint32_t control = _mm_getcsr();
    Startup(made->Block(), &result, kThisSystem);
    _mm_setcsr(control);
    return made;
  }();
  return *tables;
}

class KernelsTest : public ::testing::TestWithParam<Build> {
 protected:
  KernelsTest() : arena_(8, size_t{1} << 20), reference_(ReferenceOf(GetParam())) {
    StartedTables();
  }
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

TEST(InstalledTest, StandInTheTablesInTheirWidestBuild) {
  const host::Tables& tables = StartedTables();
  for (const Build& build : AllBuilds()) {
    bool isInstalled = false;
    for (const Build& other : AllBuilds())
      if (other.suite == build.suite && other.slot == build.slot && other.runsHere)
        isInstalled = tables.Live(other.suite, other.slot) == other.routine;
    EXPECT_TRUE(isInstalled) << NameOf(build);
  }
}

}  // namespace
}  // namespace vantrix
