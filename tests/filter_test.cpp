// The filters in cases that random scenes do not reach: the root for all its inputs, what is handed
// to the host, and values worked out by hand.
#include <gtest/gtest.h>
#include <xmmintrin.h>

#include <cmath>
#include <cstring>
#include <numeric>
#include <vector>

#include "plugin/base/suites.h"
#include "suites/filter/convolve.h"
#include "suites/filter/deviation.h"
#include "suites/filter/differences.h"
#include "suites/filter/float_blocks.h"
#include "suites/filter/root.h"
#include "tests/builds.h"
#include "tests/fake_host.h"

namespace vantrix {
namespace {

TEST(DeviationTest, RootIsExactForEveryValueInEveryRoundingMode) {
  const uint32_t entry = _mm_getcsr();
  for (uint32_t mode = 0; mode < 4; ++mode) {
    int32_t wrong = -1;
    _mm_setcsr((entry & ~0x6000u) | mode << 13);
    int32_t root = 0;
    for (int32_t d = 0; d <= 1300500; d += 4) {
      const auto roots = RootOfTwentyFirst(Lanes<int32_t, 4>{d, d + 1, d + 2, d + 3});
      for (int32_t i = 0; i < 4; ++i) {
        while ((root + 1) * (root + 1) <= (d + i) / 21) ++root;
        if (roots[i] != root && wrong < 0) wrong = d + i;
      }
    }
    _mm_setcsr(entry);
    EXPECT_EQ(wrong, -1) << "rounding mode " << mode;
  }
}

int64_t polls;
int64_t Poll() { return 1000 + ++polls; }

TEST(DeviationTest, HasTheKnownValuesAndReturnsThePoll) {
  static Routine live[17] = {AsRoutine(Poll)};
  coreSuite.live = live;
  for (DeviationRoutine* deviate : BuildsOf<DeviationRoutine>(kFilter, 12)) {
    for (const auto& [highs, expected] : {std::pair{0, 0}, {1, 157}, {4, 248}, {5, 248}, {9, 0}}) {
      // The same neighbourhood at every third column.
      std::vector<uint8_t> source(3 * 32), destination(30);
      for (size_t i = 0; i < static_cast<size_t>(highs); ++i)
        for (size_t x = i / 3; x < 32; x += 3) source[i % 3 * 32 + x] = 255;
      polls = 0;
      EXPECT_EQ(deviate(&source[33], destination.data(), 1, 30, 32, 30), 1001);
      for (int x = 0; x < 30; ++x) EXPECT_EQ(destination[static_cast<size_t>(x)], expected) << x;
    }
    polls = 0;
    EXPECT_EQ(deviate(nullptr, nullptr, 0, 30, 32, 30), 1001);
    EXPECT_EQ(deviate(nullptr, nullptr, INT32_MIN, 30, 32, 30), 1002);
    EXPECT_EQ(polls, 2);
  }
}

// The host is polled before anything is read or written.
uint8_t* polledSample;
int64_t ChangeSample() {
  *polledSample += 200;
  return 0;
}
TEST(DeviationTest, PollsFirst) {
  static Routine live[17] = {AsRoutine(ChangeSample)};
  coreSuite.live = live;
  for (DeviationRoutine* deviate : BuildsOf<DeviationRoutine>(kFilter, 12)) {
    std::vector<uint8_t> source(3 * 32), destination(30);
    polledSample = &source[33];
    deviate(&source[33], destination.data(), 1, 30, 32, 30);
    EXPECT_NE(destination[0], 0);
  }
}

// Of planes in one buffer, every column and row of one meets those of the other.
TEST(DeviationTest, TakesPlanesThatShareAnyColumn) {
  static Routine live[17] = {AsRoutine(Poll)};
  coreSuite.live = live;
  const auto reference =
      Call<DeviationRoutine>(FindReference(host::Catalog()[kFilter], 12)->routine);
  constexpr int kStride = 160, kRows = 4, kColumns = 40, kFirst = 5 * kStride + 60;
  std::vector<uint8_t> noise(12 * kStride);
  for (uint32_t i = 0; i < noise.size(); ++i)
    noise[i] = static_cast<uint8_t>((i * 2654435761u) >> 24);
  for (DeviationRoutine* deviate : BuildsOf<DeviationRoutine>(kFilter, 12))
    for (int row = -2; row <= 2; ++row)
      for (int column = -kColumns - 2; column <= kColumns + 2; ++column) {
        auto expected = noise, planes = noise;
        const int at = kFirst + row * kStride + column;
        reference(&expected[kFirst], &expected[static_cast<size_t>(at)], kRows, kColumns, kStride,
                  kStride);
        deviate(&planes[kFirst], &planes[static_cast<size_t>(at)], kRows, kColumns, kStride,
                kStride);
        EXPECT_EQ(planes, expected) << row << ' ' << column;
      }
}

std::vector<uint8_t> KernelOf(int32_t radius, const std::vector<uint32_t>& weights) {
  std::vector<uint8_t> kernel(84 + 4 * weights.size());
  std::memcpy(&kernel[80], &radius, 4);
  std::memcpy(kernel.data() + 84, weights.data(), 4 * weights.size());
  return kernel;
}

TEST(ConvolveTest, HasTheKnownValuesInPlanesOfAnyWidth) {
  const auto forms = BuildsOf<ConvolveRoutine>(kFilter, 28);
  const struct {
    std::vector<uint32_t> weights;
    uint8_t expected;  // of rows 0, 255, 0, or of 255 alone
  } cases[] = {
      {{256}, 255},                 // the sample itself
      {{64, 128, 64}, 128},         // the high byte of 32640 + 128
      {{64, 0xABCD0080, 64}, 128},  // bits above the low 16 do not count
      {{1, 258, 1}, 1},             // 65790 + 128 wraps to 382
      {{0, 65535, 0}, 255},         // -255 + 128
  };
  for (ConvolveRoutine* convolve : forms) {
    for (const auto& c : cases) {
      const auto radius = static_cast<int32_t>(c.weights.size() / 2);
      const auto kernel = KernelOf(radius, c.weights);
      for (const int32_t columns : {1, 15, 16, 4095, 4096, 4097, 4098, 8192, 8193}) {
        const auto width = static_cast<size_t>(columns);
        std::vector<uint8_t> source(3 * width), destination(width, 99);
        std::fill_n(source.begin() + columns, columns, uint8_t{255});
        convolve(&source[width], destination.data(), 1, columns, columns, columns,
                 reinterpret_cast<const ConvolutionKernel*>(kernel.data()));
        EXPECT_EQ(destination, std::vector<uint8_t>(width, c.expected)) << columns;
      }
    }
    convolve(nullptr, nullptr, 0, 16, 16, 16, nullptr);
    convolve(nullptr, nullptr, 1, 0, 16, 16, nullptr);
    convolve(nullptr, nullptr, 1, -5, 16, 16, nullptr);
  }
}

TEST(DifferencesTest, HaveTheKnownSums) {
  alignas(16) uint8_t a[128], b[128], direction[128];
  const auto fill = [](uint8_t(&block)[128], int value) { std::memset(block, value, 128); };
  fill(a, 0), fill(b, 255);
  for (BlockSADRoutine* sum : BuildsOf<BlockSADRoutine>(kFilter, 188)) {
    EXPECT_EQ(sum(a, b), 32640u);
    EXPECT_EQ(sum(a, a), 0u);
  }
  fill(a, 10), fill(b, 4);
  for (BlockSignedSADRoutine* sum : BuildsOf<BlockSignedSADRoutine>(kFilter, 189)) {
    fill(direction, 0);
    EXPECT_EQ(sum(a, b, direction), 768u);
    EXPECT_EQ(sum(b, a, direction), 0u);
    fill(direction, 255);
    EXPECT_EQ(sum(a, b, direction), 0u);
    EXPECT_EQ(sum(b, a, direction), 768u);
    fill(direction, 4);  // bit 2 of the difference 6 is held back
    EXPECT_EQ(sum(a, b, direction), 256u);
  }
}

// The order of additions shows in the last bits: 1e8 absorbs a 1 that comes after it.
TEST(FloatBlockTest, AddsTermsFromTheFirstOn) {
  std::vector<float> input(8), output(4), matrix(32, 1.0f);
  input = {1, 1e8f, 1, -1e8f, 3, 0, 0, 0};
  matrix[8] = 0;  // phase 1 lacks the first term
  for (FloatBlockRoutine* filter : BuildsOf<FloatBlockRoutine>(kFilter, 191)) {
    filter(input.data(), 8, matrix.data(), 0, 0, output.data());
    EXPECT_EQ(output[0], 3);
    EXPECT_EQ(output[1], 3);
    const std::vector<float> late = {1e8f, -1e8f, 1, 1e8f, 1, -1e8f, 1, -0.0f};
    filter(late.data(), 8, matrix.data(), 0, 0, output.data());
    EXPECT_EQ(output[0], 1);
    // A first term of -0 stays: the sum does not start from +0.
    const std::vector<float> zeros(8, -0.0f);
    filter(zeros.data(), 8, matrix.data(), 0, 0, output.data());
    EXPECT_TRUE(std::signbit(output[0]));
  }
}

// The outputs run into the matrix, of which later steps take what was written.
TEST(FloatBlockTest, TakesAMatrixAmongItsOutputs) {
  const auto reference =
      Call<FloatBlockRoutine>(FindReference(host::Catalog()[kFilter], 191)->routine);
  constexpr int kSteps = 20, kCount = 4 * kSteps + 4;
  std::vector<float> input(kCount), noise(4 * kSteps + 32);
  for (size_t i = 0; i < input.size(); ++i) input[i] = 1.0f / static_cast<float>(i + 1);
  for (size_t i = 0; i < noise.size(); ++i) noise[i] = static_cast<float>(i % 7) - 3;
  for (FloatBlockRoutine* filter : BuildsOf<FloatBlockRoutine>(kFilter, 191))
    for (size_t at = 0; at <= 4 * kSteps; ++at) {
      auto expected = noise, floats = noise;
      reference(input.data(), kCount, &expected[at], 0, 0, expected.data());
      filter(input.data(), kCount, &floats[at], 0, 0, floats.data());
      EXPECT_EQ(floats, expected) << at;
    }
}

struct FloatCall {
  const float *input, *matrix;
  uint32_t count;
  uintptr_t fourth, fifth;
  float* output;
  friend bool operator==(const FloatCall&, const FloatCall&) = default;
};
std::vector<FloatCall> handed;
void TakeRest(const float* input, uint32_t count, const float* matrix, uintptr_t fourth,
              uintptr_t fifth, float* output) {
  handed.push_back({input, matrix, count, fourth, fifth, output});
}

TEST(FloatBlockTest, HandsTheRestToTheHost) {
  filterSuite.saved[193] = AsRoutine(TakeRest);
  filterSuite.saved[194] = AsRoutine(TakeRest);
  std::vector<float> input(200), matrix(80), output(200);
  const struct {
    uint32_t span;
    std::vector<FloatBlockRoutine*> forms;
  } filters[] = {{16, BuildsOf<FloatBlockRoutine>(kFilter, 193)},
                 {20, BuildsOf<FloatBlockRoutine>(kFilter, 194)}};
  for (const auto& filter : filters) {
    for (FloatBlockRoutine* form : filter.forms) {
      for (uint32_t count = 0; count <= 5 * filter.span; ++count) {
        handed.clear();
        form(input.data(), count, matrix.data(), ~uintptr_t{0}, 7, output.data());
        const uint32_t whole = count / filter.span * filter.span;
        if (whole == 0) {
          EXPECT_TRUE(handed.empty()) << count;
          continue;
        }
        const uint32_t done = whole - filter.span + 4;
        EXPECT_EQ(handed, (std::vector<FloatCall>{{input.data() + done, matrix.data(), count - done,
                                                   ~uintptr_t{0}, 7, output.data() + done}}))
            << count;
      }
    }
  }
}

}  // namespace
}  // namespace vantrix
