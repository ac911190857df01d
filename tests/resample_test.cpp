// Resampling in cases that random scenes do not reach: the averages for all sums, what goes through
// the memory suite, and values worked out by hand.
#include <gtest/gtest.h>

#include <climits>
#include <vector>

#include "common/tables.h"
#include "plugin/base/suites.h"
#include "suites/resample/average.h"
#include "suites/resample/box.h"
#include "suites/resample/horizontal.h"
#include "suites/resample/positions.h"
#include "suites/resample/stepped.h"
#include "suites/resample/vertical.h"
#include "tests/builds.h"
#include "tests/fake_host.h"

namespace vantrix {
namespace {

using Samples = std::vector<uint8_t>;

TEST(AverageTest, IsTheSameInLanesForEverySum) {
  for (uint32_t count = 1; count <= 1000; ++count) {
    const Average average(count);
    const uint32_t reciprocal = 16777216 / count, step = count <= 256 ? 1 : 97;
    uint32_t wrong = 0, previous = 0;
    for (uint32_t sum = 0; sum <= 255 * count; sum += step) {
      const uint32_t expected = (sum + count / 2) * reciprocal >> 24;
      wrong += expected > 255 || expected < previous || average.Of(sum) != expected;
      wrong += average.Of(Fill<Lanes<uint32_t, 4>>(sum))[3] != expected;
      if (count <= Average::kCountIn16Bits)
        wrong += average.Of(Fill<Lanes<uint16_t, 8>>(static_cast<uint16_t>(sum)))[5] != expected;
      if (count == 4)
        wrong +=
            average.OfCount<4>(Fill<Lanes<uint16_t, 8>>(static_cast<uint16_t>(sum)))[5] != expected;
      if (count == 8)
        wrong +=
            average.OfCount<8>(Fill<Lanes<uint16_t, 8>>(static_cast<uint16_t>(sum)))[5] != expected;
      previous = expected;
    }
    ASSERT_EQ(wrong, 0u) << "of " << count;
    ASSERT_EQ(average.Of(255 * count), 255) << count;
  }
}

struct MemoryCall {
  const void *source, *destination;
  int64_t bytes;
  uint32_t value;
  friend bool operator==(const MemoryCall&, const MemoryCall&) = default;
};
std::vector<MemoryCall> calls;
void NoteCopy(const uint8_t* source, uint8_t* destination, int32_t bytes) {
  calls.push_back({source, destination, bytes, 0});
}
void NoteFill(uint8_t* destination, int32_t bytes, uint32_t value) {
  calls.push_back({nullptr, destination, bytes, value});
}

// Kernels must call the routines that are in the table when they run.
TEST(LiveTest, CopiesAndFillsThroughTheMemorySuite) {
  Routine live[4] = {AsRoutine(NoteCopy), nullptr, nullptr, AsRoutine(NoteFill)};
  memorySuite.live = live;
  static float plane[100], target[40];
  const auto* const bytes = reinterpret_cast<const uint8_t*>(plane);
  auto* const out = reinterpret_cast<uint8_t*>(target + 20);
  const int32_t offsets[] = {1, -1, 0};
  const uint8_t phases[3] = {};
  // Copies the row after the named one. Only the whole samples of a stride in bytes count.
  for (const int32_t taps : {0, 1, 0x70001}) {
    for (auto* const filter : BuildsOf<FilterVertical<uint8_t>>(kResample, 6)) {
      calls.clear();
      filter(bytes, out, 3, 7, offsets, phases, 9, -11, taps, nullptr);
      EXPECT_EQ(calls, (std::vector<MemoryCall>{{bytes + 18, out, 7, 0},
                                                {bytes, out - 11, 7, 0},
                                                {bytes + 9, out - 22, 7, 0}}));
    }
    for (auto* const filter : BuildsOf<FilterVertical<float>>(kResample, 27)) {
      calls.clear();
      filter(plane, target, 2, 7, offsets, phases, 43, 39, taps, nullptr);
      EXPECT_EQ(calls,
                (std::vector<MemoryCall>{{plane + 20, target, 28, 0}, {plane, target + 9, 28, 0}}));
    }
  }
  calls.clear();
  BuildsOf<FilterVertical<float>>(kResample, 27)[0](plane, target, 1, INT_MAX, &offsets[1], phases,
                                                    4, 4, 1, nullptr);
  int64_t copied = 0;
  for (const MemoryCall& call : calls) {
    EXPECT_EQ(reinterpret_cast<intptr_t>(call.source), reinterpret_cast<intptr_t>(bytes) + copied);
    EXPECT_EQ(reinterpret_cast<intptr_t>(call.destination),
              reinterpret_cast<intptr_t>(target) + copied);
    copied += call.bytes;
  }
  EXPECT_EQ(copied, int64_t{4} * INT_MAX) << "more than one count can tell";

  const Samples source = {40, 41, 42, 43, 44, 45, 46, 47, 48};
  const int32_t lengths[] = {0, 0};
  calls.clear();
  ResampleRowsStepped8(&source[3], out, 2, 3, lengths, 1, -20);
  EXPECT_EQ(calls, (std::vector<MemoryCall>{{nullptr, out, 3, 40}, {nullptr, out - 20, 3, 41}}));
}

// Three samples before and after a source of 1 .. 8.
TEST(SteppedTest, ShowsTheRowAboutItsMiddle) {
  const Samples source = {93, 92, 91, 1, 2, 3, 4, 5, 6, 7, 8, 81, 82, 83};
  const struct {
    int32_t length;
    Samples expected;
  } cases[] = {
      {8, {1, 2, 3, 4, 5, 6, 7, 8}},        {-8, {8, 7, 6, 5, 4, 3, 2, 1}},
      {16, {3, 3, 4, 4, 5, 5, 6, 6}},       {4, {93, 91, 2, 4, 6, 8, 82, 83}},
      {1, {93, 93, 93, 1, 81, 83, 83, 83}},
  };
  for (const auto& c : cases) {
    Samples result(8);
    ResampleRowsStepped8(&source[3], result.data(), 1, 8, &c.length, 0, 0);
    EXPECT_EQ(result, c.expected) << c.length;
  }
}

TEST(PositionsTest, TakeInWhatIsInside) {
  const Samples source = {10, 20, 250};
  const int32_t positions[] = {-32769,         -32768,      0,    32767, 32768, 131072 + 32767,
                               131072 + 32768, -129,        -128, 127,   128,   65536 + 32768,
                               131072 + 127,   131072 + 128};
  const Samples nearest = {0, 10, 10, 10, 20, 250, 0, 10, 10, 10, 10, 250, 250, 250};
  BuildSharedTables();
  // 20 + 230 x 128 / 255 = 135.45; a position of 128 is half of a 255th, and is rounded up.
  const Samples linear = {0, 0, 10, 15, 15, 0, 0, 0, 10, 10, 10, 135, 250, 0};
  for (auto* const sample : BuildsOf<SampleAtPositions1D>(kResample, 18)) {
    for (const int32_t mode : {0, 1, 0x10000, 0x8000}) {
      Samples result(std::size(positions));
      sample(source.data(), result.data(), static_cast<int32_t>(result.size()), 3, positions, mode);
      EXPECT_EQ(result, static_cast<uint16_t>(mode) ? linear : nearest) << mode;
    }
  }
}

// Half a sample past each sample; for the linear mode each
// sample exactly, with nothing in the low bits.
TEST(PositionsTest, MayAllHaveTheSameFraction) {
  Samples source(40);
  for (size_t i = 0; i < source.size(); ++i) source[i] = static_cast<uint8_t>(5 * i + 1);
  for (auto* const sample : BuildsOf<SampleAtPositions1D>(kResample, 18))
    for (const int32_t mode : {0, 1}) {
      int32_t positions[39];
      for (int32_t i = 0; i < 39; ++i) positions[i] = 65536 * i + (mode == 0 ? 32768 : -128);
      Samples result(39);
      sample(source.data(), result.data(), 39, 40, positions, mode);
      EXPECT_EQ(result, Samples(source.begin() + (mode == 0), source.end() - (mode != 0))) << mode;
    }
}

TEST(KnownValuesTest, AreAsWorkedOutByHand) {
  const Samples source = {1, 1, 0, 2, 2, 2, 10, 20};
  const int32_t counts[] = {3, 0, 3, 1, -1, 2};
  for (auto* const average : BuildsOf<BoxAverageRows>(kResample, 3)) {
    Samples result(6, 77);
    average(source.data(), result.data(), 6, 1, counts, 1, 1);
    EXPECT_EQ(result, (Samples{0, 77, 2, 10, 1, 15}));
  }

  // The mean of two neighbours, their sum, and a negative sum.
  const int32_t offsets[] = {0, 0, 0};
  const uint8_t phases[] = {0, 1, 2};
  const int16_t weights[] = {8192, 8192, 16384, 16384, -16384, 0};
  const auto expect = [&]<class Sample>(FilterHorizontal<Sample>* filter, Sample first,
                                        Sample second, const std::vector<Sample>& expected) {
    const std::vector<Sample> row = {first, second};
    std::vector<Sample> result(3);
    filter(row.data(), result.data(), 1, 3, offsets, phases, 0, 0, 2, weights);
    EXPECT_EQ(result, expected);
  };
  for (auto* filter : BuildsOf<FilterHorizontal<uint8_t>>(kResample, 5))
    expect(filter, uint8_t{100}, uint8_t{201}, {151, 255, 0});
  for (auto* filter : BuildsOf<FilterHorizontal<uint16_t>>(kResample, 13))
    expect(filter, uint16_t{20000}, uint16_t{12768}, {16384, 32768, 0});
  for (auto* filter : BuildsOf<FilterHorizontal<float>>(kResample, 26))
    expect(filter, 1.0f, 2.0f, {1.5f, 3.0f, -1.0f});
}

}  // namespace
}  // namespace vantrix
