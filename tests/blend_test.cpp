// The blends over all inputs, and what they leave alone.
#include <gtest/gtest.h>
#include <xmmintrin.h>

#include <functional>
#include <vector>

#include "common/tables.h"
#include "host/exercise/exercises.h"
#include "plugin/suites.h"
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

// Calls a blend on all pairs, with one value of whatever else it takes, and returns
// what it wrote. By argument list.
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
// The flags are bits of `other`: any byte that is not zero sets one.
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
      {host::ExercisePlaneBlend, PlaneOnPairs},
      {host::ExercisePlaneBlend, PlaneOnPairs},
      {host::ExerciseOpacityBlend, OpacityOnPairs},
      {host::ExerciseOpacityBlend, OpacityOnPairs},
      {host::ExerciseMaskedBlend, MaskedOnPairs},
      {host::ExerciseMaskedBlend, MaskedOnPairs},
      {host::ExerciseColorMaskedBlend, ColorOnPairs},
      {host::ExerciseColorMaskedBlend, ColorOnPairs},
      {host::ExercisePlanesBlend, PlanesOnPairs},
      {host::ExerciseInvertBlend, InvertOnPairs},
      {host::ExerciseShareBlend, ShareOnPairs},
      {host::ExerciseMaskFirstBlend, MaskFirstOnPairs},
  };
  for (const auto& shape : shapes)
    if (shape.exercise == ReferenceOf(build)->exercise) return shape.onPairs;
  return nullptr;
}

std::vector<TestedBuild> BlendBuilds(std::initializer_list<int> slots = {}) {
  BuildSharedTables();
  std::vector<TestedBuild> builds;
  for (const TestedBuild& build : AllBuilds())
    if (build.suite == kBlend && build.runsHere &&
        (slots.size() == 0 || std::count(slots.begin(), slots.end(), build.slot)))
      builds.push_back(build);
  return builds;
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

// One sample by a routine: source (or colour) s, destination d, weight w.
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

// Eight samples at offset 5 and twelve more are a head and a tail without a block; with
// nothing selected, none of them may be written, not even with its own value.
TEST(ThresholdTest, WritesNoUnselectedSampleOutsideItsBlocks) {
  const host::Arena arena(1, host::Arena::kPage);
  uint8_t* const d = arena.Region(0);
  arena.SetWritable(0, host::Arena::kPage, false);
  const Samples source(64, 9), below(64, 127), one(64, 1);
  for (const TestedBuild& b : BlendBuilds({30, 31, 106})) {
    for (int offset = 0; offset < 16; ++offset) {
      const int head = -offset & 15;
      for (int columns = 1; columns < head + 16; ++columns) {
        if (b.slot == 30)
          Call<MaskedBlend>(b.routine)(source.data(), d + offset, below.data(), 1, columns, 1, 1,
                                       1);
        else if (b.slot == 31)
          Call<ColorMaskedBlend>(b.routine)(9, d + offset, below.data(), 1, columns, 1, 1);
        else
          Call<MaskFirstBlend>(b.routine)(one.data(), d + offset, 1, columns, 1, 1, 9);
      }
    }
  }
}

// A tail behind blocks, which are written: it begins with a page that is read only.
TEST(ThresholdTest, WritesNoUnselectedSampleBehindItsBlocks) {
  const host::Arena arena(1, 2 * host::Arena::kPage);
  uint8_t* const boundary = arena.Region(0) + host::Arena::kPage;
  arena.SetWritable(0, 2 * host::Arena::kPage, false);
  arena.SetWritable(0, host::Arena::kPage, true);
  const Samples source(64, 9);
  for (const TestedBuild& b : BlendBuilds({30, 31}))
    for (int blocks = 16; blocks <= 48; blocks += 16) {
      Samples mask(64, 200);
      std::fill(mask.begin() + blocks, mask.end(), uint8_t{127});
      for (int tail = 1; tail < 16; ++tail) {
        uint8_t* const d = boundary - blocks;
        d[blocks - 1] = 5;
        if (b.slot == 30)
          Call<MaskedBlend>(b.routine)(source.data(), d, mask.data(), 1, blocks + tail, 1, 1, 1);
        else
          Call<ColorMaskedBlend>(b.routine)(9, d, mask.data(), 1, blocks + tail, 1, 1);
        EXPECT_EQ(d[blocks - 1], 9);
      }
    }
}

// Rows of at most 4096 samples are taken as they were before each row is written.
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

// Of masked lighten and darken a sample is left alone whose source is not lighter or darker: in
// rows without a whole block, and in blocks in which that is so of all samples.
TEST(ExtremesInPartTest, WriteNoSampleThatTheyLeaveAlone) {
  const host::Arena arena(1, host::Arena::kPage);
  uint8_t* const d = arena.Region(0);
  std::fill(d, d + host::Arena::kPage, uint8_t{100});
  arena.SetWritable(0, host::Arena::kPage, false);
  const Samples lighter(512, 101), same(512, 100), darker(512, 99), full(512, 255);
  for (const TestedBuild& b : BlendBuilds({7, 8, 10, 11})) {
    const bool lightens = b.slot >= 10;
    for (int offset = 0; offset < 16; ++offset) {
      for (int columns = 1; columns < 200; ++columns) {
        for (const Samples& source : {same, lightens ? darker : lighter}) {
          if (b.slot == 7 || b.slot == 10)
            Call<MaskedBlend>(b.routine)(source.data(), d + offset, full.data(), 1, columns, 1, 1,
                                         1);
          else
            Call<ColorMaskedBlend>(b.routine)(source[0], d + offset, full.data(), 1, columns, 1, 1);
        }
      }
    }
  }
}

// One sample that changes lies in a head or a tail, the others beside it on another page.
TEST(ExtremesInPartTest, WriteNothingBesideASampleThatChanges) {
  const host::Arena arena(1, 2 * host::Arena::kPage);
  uint8_t* const boundary = arena.Region(0) + host::Arena::kPage;
  std::fill(arena.Region(0), boundary + 64, uint8_t{100});
  arena.SetWritable(0, host::Arena::kPage, false);
  const Samples full(64, 255);
  for (const TestedBuild& b : BlendBuilds({7, 10})) {
    for (int before = 1; before < 16; ++before) {
      for (int at = 0; at < 16 - before; ++at) {
        Samples source(32, 100);
        source[static_cast<size_t>(before + at)] = b.slot == 10 ? 255 : 0;
        boundary[at] = 100;
        Call<MaskedBlend>(b.routine)(source.data(), boundary - before, full.data(), 1,
                                     before + at + 1, 1, 1, 1);
        EXPECT_EQ(boundary[at], b.slot == 10 ? 255 : 0) << NameOf(b) << before << at;
      }
    }
  }
}

class ChangedBlocksTest : public ::testing::TestWithParam<TestedBuild> {
 protected:
  // A source sample that changes nothing, and one that does.
  uint8_t Same() const { return GetParam().slot == 28 ? 0 : 255; }
  uint8_t Changing() const { return GetParam().slot == 28 ? 255 : 0; }
  void Blend(const uint8_t* source, uint8_t* destination, int32_t columns) const {
    Call<PlaneBlend>(GetParam().routine)(source, destination, 1, columns, columns, columns);
  }
};

TEST_P(ChangedBlocksTest, StoresNoBlockThatStaysAsItIs) {
  const host::Arena arena(1, 2 * host::Arena::kPage);
  uint8_t* const boundary = arena.Region(0) + host::Arena::kPage;
  std::fill(arena.Region(0), boundary + 64, uint8_t{100});
  arena.SetWritable(0, host::Arena::kPage, false);
  Samples source(128, Same());
  Blend(source.data(), boundary - 128, 128);  // all of it on the page that is read only

  // A step of two blocks about the boundary, of which the second changes in one sample.
  for (int at = 0; at < 16; ++at) {
    source.assign(32, Same());
    source[16 + at] = Changing();
    boundary[at] = 100;
    Blend(source.data(), boundary - 16, 32);
    EXPECT_EQ(boundary[at], Changing()) << at;
  }

  // Steps on the page that is read only, and behind it the 16 to 31 samples that are left and
  // written in any case.
  for (int steps = 1; steps <= 4; ++steps)
    for (int left = 16; left < 32; ++left) {
      source.assign(200, Same());
      Blend(source.data(), boundary - 32 * steps, 32 * steps + left);
    }
}

TEST_P(ChangedBlocksTest, CarriesForwardOverAnOverlap) {
  // Each sample is the extreme of itself and the one `behind` before it, as that one is
  // by then.
  for (int behind = 1; behind < 70; ++behind) {
    Samples memory(400), expected;
    for (size_t i = 0; i < memory.size(); ++i) memory[i] = static_cast<uint8_t>(i * 89);
    expected = memory;
    for (size_t i = 100; i < 300; ++i) {
      const uint8_t s = expected[i - static_cast<size_t>(behind)];
      expected[i] = GetParam().slot == 28 ? std::max(s, expected[i]) : std::min(s, expected[i]);
    }
    Blend(memory.data() + 100 - behind, memory.data() + 100, 200);
    ASSERT_EQ(memory, expected) << behind;
  }
}

INSTANTIATE_TEST_SUITE_P(LightenDarken, ChangedBlocksTest,
                         ::testing::ValuesIn(BlendBuilds({28, 29})),
                         [](const auto& test) { return NameOf(test.param); });

// The whole register, sticky flags included, in every rounding mode, also where there
// is nothing to do; and no quotient depends on the mode.
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
