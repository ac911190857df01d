// The filters of the resampling suite: every tap count at every width, sources about as wide as
// what is loaded at once, and rows that cross the rows that they are made of.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "host/exercise/arena.h"
#include "plugin/base/suites.h"
#include "suites/resample/signatures.h"
#include "tests/builds.h"
#include "tests/fake_host.h"

namespace vantrix {
namespace {

using Samples = std::vector<uint8_t>;

// Compares a filter with its reference, on planes and lists that end right before inaccessible
// memory, or begin right after it.
class FilterTest : public ::testing::TestWithParam<TestedBuild> {
 protected:
  template <class T>
  T* Take(int region, int32_t count) const {
    const size_t bytes = static_cast<size_t>(count) * sizeof(T);
    return reinterpret_cast<T*>(arena_.Region(region) +
                                (atEnd_ ? arena_.RegionBytes() - bytes : 0));
  }

  // A source of `items` samples per row, or of `items`
  // rows. Output items lie in order, or anywhere.
  struct Source {
    int32_t items, rows = 2;
    bool isInOrder = true;
  };

  template <class Sample, bool kIsVertical>
  void Compare(int32_t taps, int32_t width) {
    const int32_t least = std::max(taps, 1);
    Compare<Sample, kIsVertical>(taps, width, {least + (kIsVertical ? 1 : width * 2 / 3)});
  }
  template <class Sample, bool kIsVertical>
  void Compare(int32_t taps, int32_t width, Source from) {
    constexpr int32_t kSize = sizeof(Sample), kPhases = 3;
    const int32_t rows = from.rows, columns = kIsVertical ? width : from.items;
    const int32_t sourceRows = kIsVertical ? from.items : rows;
    const int32_t items = kIsVertical ? rows : width;
    const int32_t last = from.items - std::max(taps, 1);
    auto* const source = Take<Sample>(0, sourceRows * columns);
    auto* const offsets = Take<int32_t>(1, items);
    auto* const phases = Take<uint8_t>(2, items);
    auto* const weights = Take<int16_t>(3, kPhases * taps);
    auto* const target = Take<uint8_t>(4, rows * width * kSize);
    auto noise = static_cast<uint32_t>(taps * 100 + width);
    const auto next = [&] { return (noise = noise * 1664525 + 1013904223) >> 8; };
    std::generate_n(source, sourceRows * columns, [&] { return static_cast<Sample>(next()); });
    std::generate_n(weights, kPhases * taps,
                    [&] { return static_cast<int16_t>(int32_t(next() % 30000) - 10000); });
    for (int32_t i = 0; i < items; ++i) {
      const int32_t inOrder = items > 1 ? i * last / (items - 1) : last;
      const int32_t item = from.isInOrder ? inOrder : static_cast<int32_t>(next()) % (last + 1);
      offsets[i] = taps / 2 - 1 + item;
      phases[i] = static_cast<uint8_t>(i % kPhases);
    }
    Samples results[2];
    for (Samples& result : results) {
      const bool isFirst = &result == results;
      const Routine routine = isFirst ? ReferenceOf(GetParam())->routine : GetParam().routine;
      std::fill_n(target, rows * width * kSize, uint8_t{0xA5});
      reinterpret_cast<FilterVertical<Sample>*>(routine)(
          source, reinterpret_cast<Sample*>(target), rows, width, offsets, phases, columns * kSize,
          width * kSize, taps, weights);
      result.assign(target, target + rows * width * kSize);
    }
    ASSERT_EQ(results[0], results[1])
        << taps << " taps, width " << width << ", " << from.items << " items, " << rows << " rows, "
        << from.isInOrder << atEnd_;
  }

  host::Arena arena_{5, size_t{1} << 14};
  bool atEnd_ = false;
};

void CopyPlainly(const uint8_t* source, uint8_t* destination, int32_t bytes) {
  std::memcpy(destination, source, static_cast<size_t>(bytes));
}

TEST_P(FilterTest, EqualsTheReferenceForEveryTapCountAndWidth) {
  if (!GetParam().runsHere) GTEST_SKIP() << "not on this processor";
  static Routine live[] = {AsRoutine(CopyPlainly)};
  memorySuite.live = live;
  const uint16_t slot = GetParam().slot;
  for (int32_t taps = 0; taps <= 16 && !HasFatalFailure(); ++taps)
    for (int32_t width = 1; width <= 70; ++width)
      for (const bool atEnd : {false, true}) {
        atEnd_ = atEnd;
        if (slot == 5) Compare<uint8_t, false>(taps, width);
        if (slot == 6) Compare<uint8_t, true>(taps, width);
        if (slot == 13) Compare<uint16_t, false>(taps, width);
        if (slot == 26) Compare<float, false>(taps, width);
        if (slot == 27) Compare<float, true>(taps, width);
      }
}

// Windows are as wide as a register, and kernels process several rows at once. Around both sizes,
// what is read and written must stay within the planes.
class HorizontalTest : public FilterTest {};
TEST_P(HorizontalTest, EqualsTheReferenceWhereSourcesAreAboutAsWideAsWindows) {
  if (!GetParam().runsHere) GTEST_SKIP() << "not on this processor";
  const uint16_t slot = GetParam().slot;
  for (const int32_t taps : {2, 3, 4, 6, 9})
    for (const int32_t width : {17, 33, 64, 100, 131})
      for (int32_t items = taps; items <= 140 && !HasFatalFailure(); ++items)
        for (const int variant : {0, 1, 2, 3}) {
          atEnd_ = variant % 2 == 1;
          const Source from = {items, 1 + items % 5, variant < 2};
          if (slot == 5) Compare<uint8_t, false>(taps, width, from);
          if (slot == 13) Compare<uint16_t, false>(taps, width, from);
          if (slot == 26) Compare<float, false>(taps, width, from);
        }
}

std::vector<TestedBuild> BuildsOfSlots(std::initializer_list<uint16_t> slots) {
  std::vector<TestedBuild> filters;
  for (const TestedBuild& build : AllBuilds())
    if (build.suite == kResample && std::ranges::count(slots, build.slot) > 0)
      filters.push_back(build);
  return filters;
}
INSTANTIATE_TEST_SUITE_P(AllBuilds, FilterTest,
                         ::testing::ValuesIn(BuildsOfSlots({5, 6, 13, 26, 27})),
                         [](const auto& test) { return NameOf(test.param); });
INSTANTIATE_TEST_SUITE_P(AllBuilds, HorizontalTest, ::testing::ValuesIn(BuildsOfSlots({5, 13, 26})),
                         [](const auto& test) { return NameOf(test.param); });

// Puts an output row at every place around the rows that it is made of.
TEST(VerticalTest, EqualsTheReferenceWhereverItsRowsCross) {
  constexpr int kWidth = 37, kTaps = 3, kBelow = 150;
  const int32_t offsets[] = {0};
  const uint8_t phases[] = {0};
  const int16_t weights[] = {5000, 7000, 4384, 0};
  const host::Reference* const reference = host::FindReference(host::Catalog()[kResample], 6);
  const auto filtered = [&](Routine routine, int stride, int at) {
    Samples memory(500);
    for (size_t i = 0; i < memory.size(); ++i) memory[i] = static_cast<uint8_t>(i * i + 13 * i);
    uint8_t* const source = memory.data() + 250;
    Call<FilterVertical<uint8_t>>(routine)(source, source + at, 1, kWidth, offsets, phases, stride,
                                           kWidth, kTaps, weights);
    return memory;
  };
  for (FilterVertical<uint8_t>* filter : BuildsOf<FilterVertical<uint8_t>>(kResample, 6))
    for (const int stride : {40, -40})
      for (int at = -kBelow; at < kBelow; ++at)
        ASSERT_EQ(filtered(AsRoutine(filter), stride, at), filtered(reference->routine, stride, at))
            << stride << ' ' << at;
}

// Of far planes a row is taken in pieces. The rows lie apart, or as many bytes after their sources.
template <class Sample>
void CompareFar(uint16_t slot, std::initializer_list<int32_t> places) {
  constexpr int32_t kRows = 5, kSourceRows = 12, kSize = sizeof(Sample), kFar = 8 << 20;
  constexpr int32_t kWidth = kFar / (2 * kRows * kSize) + 100, kStride = kWidth * kSize + 3;
  constexpr int32_t kTaps = 3, offsets[] = {3, 1, 1, 8, 5};
  const uint8_t phases[] = {0, 1, 0, 0, 1};
  const int16_t weights[] = {5000, 7000, 4384, -3000, 20000, 9000};
  const auto filtered = [&](Routine routine, int32_t place) {
    Samples memory((kSourceRows + kRows) * kStride + 8192);
    uint8_t* const source = memory.data() + 4096;
    for (int32_t i = 0; i < kSourceRows * kStride / kSize; ++i) {
      const auto sample = static_cast<Sample>((i * 89) ^ (i >> 7));
      std::memcpy(source + i * kSize, &sample, kSize);
    }
    Call<FilterVertical<Sample>>(routine)(reinterpret_cast<Sample*>(source),
                                          reinterpret_cast<Sample*>(source + place), kRows, kWidth,
                                          offsets, phases, kStride, kStride, kTaps, weights);
    return memory;
  };
  const host::Reference* const reference = host::FindReference(host::Catalog()[kResample], slot);
  for (const int32_t place : places) {
    const int32_t at = place == 0 ? kSourceRows * kStride / kSize * kSize : place;
    const Samples expected = filtered(reference->routine, at);
    for (FilterVertical<Sample>* filter : BuildsOf<FilterVertical<Sample>>(kResample, slot))
      ASSERT_TRUE(filtered(AsRoutine(filter), at) == expected) << slot << ' ' << place;
  }
}

TEST(VerticalTest, EqualsTheReferenceInFarPlanes) {
  CompareFar<uint8_t>(6, {0, 700, 1024, 1500, -700, -3000});
  CompareFar<float>(27, {0, 700, 4000, -700});
}

}  // namespace
}  // namespace vantrix
