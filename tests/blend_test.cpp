// The blends for all inputs, and for overlaps that random scenes do not reach.
#include <gtest/gtest.h>
#include <xmmintrin.h>

#include <algorithm>
#include <vector>

#include "common/tables.h"
#include "host/exercise/exercises.h"
#include "plugin/base/interface.h"
#include "suites/blend/signatures.h"
#include "tests/builds.h"

namespace vantrix {
namespace {

constexpr int kSide = 256;
constexpr size_t kPairs = kSide * kSide;
using Samples = std::vector<uint8_t>;

// Planes of 256 x 256 samples: every x with every y.
struct Pairs {
  Samples x = Samples(kPairs), y = Samples(kPairs);
  Pairs() {
    for (size_t i = 0; i < kPairs; ++i) {
      x[i] = static_cast<uint8_t>(i);
      y[i] = static_cast<uint8_t>(i / kSide);
    }
  }
};

// Calls a blend on all pairs, with one value of whatever else it takes, and returns what it wrote.
// There is one for each argument list.
using OnPairs = Samples(Routine routine, const Pairs& pairs, uint8_t other);

Samples PlaneOnPairs(Routine routine, const Pairs& pairs, uint8_t) {
  Samples d = pairs.y;
  Call<PlaneBlend>(routine)(pairs.x.data(), d.data(), kSide, kSide, kSide, kSide);
  return d;
}
Samples OpacityOnPairs(Routine routine, const Pairs& pairs, uint8_t opacity) {
  Samples d = pairs.y;
  Call<OpacityBlend>(routine)(pairs.x.data(), d.data(), kSide, kSide, kSide, kSide,
                              opacity | 0xABCD00u);
  return d;
}
Samples MaskedOnPairs(Routine routine, const Pairs& pairs, uint8_t weight) {
  Samples d = pairs.y;
  const Samples mask(kPairs, weight);
  Call<MaskedBlend>(routine)(pairs.x.data(), d.data(), mask.data(), kSide, kSide, kSide, kSide,
                             kSide);
  return d;
}
Samples ColorOnPairs(Routine routine, const Pairs& pairs, uint8_t color) {
  Samples d = pairs.y;
  Call<ColorMaskedBlend>(routine)(color | 0xFFFFFF00u, d.data(), pairs.x.data(), kSide, kSide,
                                  kSide, kSide);
  return d;
}
// The destination's former samples are `other`, which must not matter.
Samples PlanesOnPairs(Routine routine, const Pairs& pairs, uint8_t other) {
  Samples d(kPairs, other);
  Call<PlanesBlend>(routine)(pairs.x.data(), d.data(), pairs.y.data(), kSide, kSide, kSide, kSide,
                             kSide);
  return d;
}
// The flags are bits of `other`: any non-zero byte sets a flag.
Samples InvertOnPairs(Routine routine, const Pairs& pairs, uint8_t other) {
  Samples d(kPairs, other);
  Call<InvertBlend>(routine)(pairs.x.data(), pairs.y.data(), d.data(), kSide, kSide, kSide, kSide,
                             kSide, other & 0x0F, other & 0x30, 0x100u | (other & 0xC0));
  return d;
}
Samples ShareOnPairs(Routine routine, const Pairs& pairs, uint8_t) {
  Samples q = pairs.x, p = pairs.y;
  Call<ShareBlend>(routine)(q.data(), p.data(), kSide, kSide, kSide, kSide);
  q.insert(q.end(), p.begin(), p.end());
  return q;
}
Samples MaskFirstOnPairs(Routine routine, const Pairs& pairs, uint8_t color) {
  Samples d = pairs.y;
  Call<MaskFirstBlend>(routine)(pairs.x.data(), d.data(), kSide, kSide, kSide, kSide,
                                color | 0x12345600u);
  return d;
}

OnPairs* OnPairsOf(const TestedBuild& build) {
  const struct {
    host::Exercise* exercise;
    OnPairs* onPairs;
  } shapes[] = {
      {host::ExercisePlaneBlend, PlaneOnPairs},   {host::ExerciseOpacityBlend, OpacityOnPairs},
      {host::ExerciseMaskedBlend, MaskedOnPairs}, {host::ExerciseColorMaskedBlend, ColorOnPairs},
      {host::ExercisePlanesBlend, PlanesOnPairs}, {host::ExerciseInvertBlend, InvertOnPairs},
      {host::ExerciseShareBlend, ShareOnPairs},   {host::ExerciseMaskFirstBlend, MaskFirstOnPairs},
  };
  for (const auto& shape : shapes)
    if (shape.exercise == ReferenceOf(build)->exercise) return shape.onPairs;
  return nullptr;
}

std::vector<TestedBuild> BlendBuilds(std::initializer_list<uint16_t> slots = {}) {
  BuildSharedTables();
  return BuildsHere(kBlend, slots);
}

class BlendTest : public ::testing::TestWithParam<TestedBuild> {};

TEST_P(BlendTest, EqualsTheReferenceForAllPairsAndAllWeights) {
  OnPairs* const onPairs = OnPairsOf(GetParam());
  ASSERT_NE(onPairs, nullptr) << "a shape that this test does not know";
  const Pairs pairs;
  for (int other = 0; other < 256; ++other) {
    const auto value = static_cast<uint8_t>(other);
    const Samples expected = onPairs(ReferenceOf(GetParam())->routine, pairs, value);
    const Samples actual = onPairs(GetParam().routine, pairs, value);
    for (size_t i = 0; i < expected.size(); ++i)
      ASSERT_EQ(actual[i], expected[i]) << "x " << int{pairs.x[i % kPairs]} << ", y "
                                        << int{pairs.y[i % kPairs]} << ", other " << other;
  }
}

INSTANTIATE_TEST_SUITE_P(AllBuilds, BlendTest, ::testing::ValuesIn(BlendBuilds()),
                         [](const auto& test) { return NameOf(test.param); });

// Return the sample that a routine makes of source s, destination d and weight w.
uint8_t MaskedSample(Routine routine, uint8_t s, uint8_t d, uint8_t w) {
  Call<MaskedBlend>(routine)(&s, &d, &w, 1, 1, 1, 1, 1);
  return d;
}
uint8_t PlaneSample(Routine routine, uint8_t s, uint8_t d) {
  Call<PlaneBlend>(routine)(&s, &d, 1, 1, 1, 1);
  return d;
}

// Values worked out by hand, so that reference and kernel cannot share a mistake.
TEST(BlendValuesTest, AreThoseWorkedOutByHand) {
  for (const TestedBuild& b : BlendBuilds()) {
    SCOPED_TRACE(NameOf(b));
    switch (b.slot) {
      case 2:
        EXPECT_EQ(MaskedSample(b.routine, 200, 100, 128), 150);  // 100 + 12800 / 255
        EXPECT_EQ(MaskedSample(b.routine, 0, 255, 1), 254);
        break;
      case 7:
        EXPECT_EQ(MaskedSample(b.routine, 100, 200, 128), 150);
        EXPECT_EQ(MaskedSample(b.routine, 200, 100, 255), 100);
        break;
      case 24:
        EXPECT_EQ(PlaneSample(b.routine, 128, 128), 64);
        EXPECT_EQ(PlaneSample(b.routine, 127, 1), 0);
        EXPECT_EQ(PlaneSample(b.routine, 128, 1), 1);
        break;
      case 27:
        EXPECT_EQ(PlaneSample(b.routine, 0, 77), 77);
        EXPECT_EQ(PlaneSample(b.routine, 255, 77), 255);
        EXPECT_EQ(PlaneSample(b.routine, 128, 128), 192);
        break;
      case 49:
        EXPECT_EQ(PlaneSample(b.routine, 100, 127), 100);  // 254 x 100 / 255
        EXPECT_EQ(PlaneSample(b.routine, 100, 128), 101);  // 1 + 100 - 0
        EXPECT_EQ(PlaneSample(b.routine, 0, 255), 255);
        break;
      case 52:
        EXPECT_EQ(PlaneSample(b.routine, 127, 100), 100);
        EXPECT_EQ(PlaneSample(b.routine, 128, 100), 100);  // row 0: no 1 is added
        EXPECT_EQ(PlaneSample(b.routine, 255, 0), 254);    // row 254, not 255
        break;
      case 66: {
        const auto burn = [&](uint8_t a, uint8_t blend) {
          uint8_t d = 99;
          Call<PlanesBlend>(b.routine)(&a, &d, &blend, 1, 1, 1, 1, 1);
          return d;
        };
        EXPECT_EQ(burn(128, 255), 128);  // 255 - (127 x 255 + 127) / 255
        EXPECT_EQ(burn(255, 0), 0);
        EXPECT_EQ(burn(255, 1), 255);
        EXPECT_EQ(burn(100, 155), 0);
        break;
      }
      default:
        break;
    }
  }
}

// Rows of at most 4096 samples are read as they were before each row is written.
TEST(CopiedRowsTest, EndAtFourThousandNinetySixSamples) {
  const auto blended = [](Routine routine, int columns) {
    Samples plane(4200);
    for (size_t i = 0; i < plane.size(); ++i) plane[i] = static_cast<uint8_t>(i * 7 + i / 9);
    Call<PlaneBlend>(routine)(plane.data(), plane.data() + 3, 1, columns, 4200, 4200);
    return plane;
  };
  for (const TestedBuild& b : BlendBuilds({27, 49, 52}))
    for (const int columns : {4095, 4096, 4097})
      EXPECT_EQ(blended(b.routine, columns), blended(ReferenceOf(b)->routine, columns))
          << NameOf(b) << ' ' << columns;
}

// Full-strength lighten and darken: each sample becomes the extreme of itself and the sample
// `behind` places before it, as that is by then.
TEST(ChangedBlocksTest, CarriesForwardOverAnOverlap) {
  for (const TestedBuild& b : BlendBuilds({28, 29}))
    for (int behind = 1; behind < 70; ++behind) {
      Samples memory(400), expected;
      for (size_t i = 0; i < memory.size(); ++i) memory[i] = static_cast<uint8_t>(i * 89);
      expected = memory;
      for (size_t i = 100; i < 300; ++i) {
        const uint8_t s = expected[i - static_cast<size_t>(behind)];
        expected[i] = b.slot == 28 ? std::max(s, expected[i]) : std::min(s, expected[i]);
      }
      Call<PlaneBlend>(b.routine)(memory.data() + 100 - behind, memory.data() + 100, 1, 200, 200,
                                  200);
      ASSERT_EQ(memory, expected) << NameOf(b) << behind;
    }
}

// The whole register stays, sticky flags included, in every rounding mode, even if there is nothing
// to do. No quotient depends on the mode.
TEST(DivisionTest, LeavesTheControlRegisterAsItWas) {
  const uint32_t entry = _mm_getcsr();
  const Pairs pairs;
  for (const TestedBuild& b : BlendBuilds({66, 96})) {
    OnPairs* const onPairs = OnPairsOf(b);
    const Samples expected = onPairs(ReferenceOf(b)->routine, pairs, 0);
    for (uint32_t mode = 0; mode < 4; ++mode) {
      for (const uint32_t others : {0x1F80u, 0x9FC0u, 0x1FBFu, 0x1D80u}) {
        const uint32_t control = others | mode << 13;  // the last one traps on division by 0
        _mm_setcsr(control);
        const Samples actual = onPairs(b.routine, pairs, 0);
        const uint32_t after = _mm_getcsr();
        if (b.slot == 66)
          Call<PlanesBlend>(b.routine)(nullptr, nullptr, nullptr, 0, 16, 16, 16, 16);
        else
          Call<ShareBlend>(b.routine)(nullptr, nullptr, 0, 16, 16, 16);
        const uint32_t afterNothing = _mm_getcsr();
        _mm_setcsr(entry);
        EXPECT_EQ(after, control) << NameOf(b);
        EXPECT_EQ(afterNothing, control) << NameOf(b);
        EXPECT_EQ(actual, expected) << NameOf(b) << " mode " << mode;
      }
    }
  }
}

}  // namespace
}  // namespace vantrix
