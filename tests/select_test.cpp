// The selection routines in cases that random scenes do not reach: what is handed to the host, and
// values worked out by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "plugin/base/suites.h"
#include "suites/select/classify.h"
#include "suites/select/in_order.h"
#include "suites/select/marks.h"
#include "suites/select/propagate.h"
#include "tests/builds.h"
#include "tests/fake_host.h"

namespace vantrix {
namespace {

struct ClassifyCall {
  const void* data;
  int32_t rows, width, rowBytes;
  friend bool operator==(const ClassifyCall&, const ClassifyCall&) = default;
};
ClassifyCall seen;

int32_t HostClassify8(const uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes) {
  seen = {data, rows, width, rowBytes};
  return 1234;
}
int32_t HostClassify16(const uint16_t* data, int32_t rows, int32_t width, int32_t rowBytes) {
  seen = {data, rows, width, rowBytes};
  return -77;
}

TEST(ClassifyTest, HandsNarrowMasksToTheHost) {
  selectSuite.saved[33] = AsRoutine(HostClassify8);
  selectSuite.saved[75] = AsRoutine(HostClassify16);
  alignas(16) const uint8_t bytes[64] = {};
  alignas(16) const uint16_t words[64] = {};
  // A wide mask without rows is empty, and none of it is accessed.
  for (Classify8Routine* classify : BuildsOf<Classify8Routine>(kSelect, 33)) {
    for (const int32_t width : {15, 1, 0, -1, INT32_MIN}) {
      EXPECT_EQ(classify(bytes, -3, width, 17), 1234);
      EXPECT_EQ(seen, (ClassifyCall{bytes, -3, width, 17}));
    }
    EXPECT_EQ(classify(bytes, 1, 16, 16), 0);
    EXPECT_EQ(classify(nullptr, 0, 16, 16), 0);
  }
  for (Classify16Routine* classify : BuildsOf<Classify16Routine>(kSelect, 75)) {
    EXPECT_EQ(classify(words, 2, 7, 15), -77);
    EXPECT_EQ(seen, (ClassifyCall{words, 2, 7, 15})) << "the step as it came, lowest bit and all";
    EXPECT_EQ(classify(words, 1, 8, 16), 0);
    EXPECT_EQ(classify(nullptr, -1, 8, 16), 0);
  }
}

TEST(ClassifyTest, FindsOneEntryAtEveryPlace) {
  const struct {
    uint8_t all, one;
    int32_t expected;
  } cases[] = {{0, 0, 0}, {255, 255, 4}, {200, 200, 3}, {100, 100, 1}, {0, 128, 2},
               {0, 1, 1}, {255, 254, 3}, {255, 127, 2}, {128, 127, 2}, {100, 255, 2}};
  const auto forms = BuildsOf<Classify8Routine>(kSelect, 33);
  for (const auto& c : cases) {
    for (int32_t width = 16; width <= 150; ++width) {
      std::vector<uint8_t> mask(static_cast<size_t>(width) + 2, c.all);
      mask.front() = mask.back() = 77;  // just outside
      for (int32_t at = 1; at <= width; ++at) {
        mask[static_cast<size_t>(at)] = c.one;
        for (Classify8Routine* classify : forms)
          ASSERT_EQ(classify(&mask[1], 1, width, width), c.expected)
              << int{c.all} << ' ' << int{c.one} << " at " << at << " of " << width;
        mask[static_cast<size_t>(at)] = c.all;
      }
    }
  }
}

// An aligned plane of 8 words per row: one entry per lane and row.
TEST(ClassifyTest, LetsFullWordsHideInTheirLanes) {
  for (Classify16Routine* routine : BuildsOf<Classify16Routine>(kSelect, 75)) {
    const auto classify = [=](std::initializer_list<uint16_t> rowValues) {
      alignas(16) uint16_t words[8 * 8];
      size_t i = 0;
      for (const uint16_t value : rowValues)
        for (int lane = 0; lane < 8; ++lane) words[i++] = value;
      return routine(words, static_cast<int32_t>(rowValues.size()), 8, 17);
    };
    EXPECT_EQ(classify({32768, 32768}), 4);
    EXPECT_EQ(classify({20000}), 3);
    EXPECT_EQ(classify({10000, 10001}), 1);
    EXPECT_EQ(classify({0, 32768}), 1) << "bit 15 makes a lane negative, and so below half";
    EXPECT_EQ(classify({20000, 0}), 2);
    EXPECT_EQ(classify({32768, 20000}), 1);
    EXPECT_EQ(classify({16384, 16384}), 3);
    EXPECT_EQ(classify({16383}), 1);
  }
}

TEST(SpreadMarkTest, ReachesOneRowEitherWayAndNoFurther) {
  for (SpreadMarkRoutine* spread : BuildsOf<SpreadMarkRoutine>(kSelect, 26)) {
    std::vector<uint8_t> column = {1, 127, 128, 5, 6, 255, 7};
    spread(column.data(), 7, 1, 1);
    EXPECT_EQ(column, (std::vector<uint8_t>{1, 255, 128, 133, 134, 255, 135}));
    std::vector<uint8_t> alone = {200};
    spread(alone.data(), 1, 1, 1);
    EXPECT_EQ(alone[0], 200);
  }
}

TEST(SpreadMarkTest, WalksWidePlanesInPieces) {
  const int32_t width = 2 * 4096 + 5;
  std::vector<uint8_t> plane(3 * static_cast<size_t>(width));
  for (const int32_t x : {0, 4095, 4096, 8191, 8192, width - 1})
    plane[static_cast<size_t>(x)] = 128;
  for (SpreadMarkRoutine* spread : BuildsOf<SpreadMarkRoutine>(kSelect, 26)) {
    auto marked = plane;
    spread(marked.data(), 3, width, width);
    for (size_t x = 0; x < static_cast<size_t>(width); ++x) {
      ASSERT_EQ(marked[static_cast<size_t>(width) + x], plane[x]) << x;
      ASSERT_EQ(marked[2 * static_cast<size_t>(width) + x], 0) << x;
    }
  }
}

template <class T, class Signature>
void ExpectLine(Signature* propagate, std::vector<T> priority, std::vector<T> value,
                const std::vector<T>& priorityAfter, const std::vector<T>& valueAfter) {
  // One line, with a line step that is not one entry.
  propagate(priority.data(), value.data(), 1, static_cast<int32_t>(priority.size()), 100,
            sizeof(T));
  EXPECT_EQ(priority, priorityAfter);
  EXPECT_EQ(value, valueAfter);
}

// Compares EntriesAreApart with all entries, one at a time. It is never wrongly true, and always
// true for lines as in a picture.
TEST(PropagateTest, TellsEntriesThatAreApart) {
  uint32_t state = 1;
  const auto between = [&](int low, int high) {
    state = state * 1664525 + 1013904223;
    return low + static_cast<int>((state >> 8) % static_cast<uint32_t>(high - low + 1));
  };
  static const uint16_t memory[4000] = {};
  for (int i = 0; i < 20000; ++i) {
    const int lines = between(1, 6), length = between(1, 6);
    const int lineStep = between(-9, 9), entryStep = between(-9, 9);
    const uint16_t *const priority = memory + 2000, *const value = priority + between(-70, 70);
    std::vector<const uint16_t*> entries;
    for (const uint16_t* first : {priority, value})
      for (int line = 0; line < lines; ++line)
        for (int entry = 0; entry < length; ++entry)
          entries.push_back(first + line * lineStep + entry * entryStep);
    std::ranges::sort(entries);
    const bool areApart = std::ranges::adjacent_find(entries) == entries.end();
    const bool told = EntriesAreApart(priority, value, {lineStep, lines}, {entryStep, length});
    EXPECT_LE(told, areApart) << lines << ' ' << length << ' ' << lineStep << ' ' << entryStep;
  }
  // Rows of 20 in a picture of 100, one plane beside the other or below it, along rows and down.
  for (const int to : {20, 80, 1000})
    for (const int back : {1, -1}) {
      EXPECT_TRUE(EntriesAreApart(memory, memory + to, {back, 20}, {100, 10}));
      EXPECT_TRUE(EntriesAreApart(memory, memory + to, {100, 10}, {back, 20}));
    }
}

TEST(PropagateTest, FollowsTheRuleAlongALine) {
  for (Propagate8Routine* propagate : BuildsOf<Propagate8Routine>(kSelect, 35)) {
    ExpectLine<uint8_t>(propagate, {3, 0, 0, 0}, {9, 1, 2, 3}, {3, 2, 1, 1}, {9, 9, 9, 9});
    ExpectLine<uint8_t>(propagate, {1, 5, 0}, {7, 8, 9}, {1, 5, 4}, {7, 8, 8});
    ExpectLine<uint8_t>(propagate, {0, 0}, {4, 6}, {0, 0}, {4, 6});
    ExpectLine<uint8_t>(propagate, {255, 254, 254}, {1, 2, 3}, {255, 254, 254}, {1, 1, 3});
  }
  for (Propagate16Routine* propagate : BuildsOf<Propagate16Routine>(kSelect, 73))
    ExpectLine<uint16_t>(propagate, {3, 0, 0, 0}, {9, 1, 2, 3}, {3, 2, 1, 1}, {9, 9, 9, 9});
}

TEST(PropagateTest, CarriesAcrossEmptyEntriesInGroupsOfEightWordLines) {
  for (Propagate16Routine* propagate : BuildsOf<Propagate16Routine>(kSelect, 73)) {
    for (const int32_t lines : {7, 8, 15, 17}) {
      const auto count = static_cast<size_t>(lines);
      std::vector<uint16_t> priority(2 * count, 0), value(2 * count, 6);
      std::fill_n(value.begin(), count, uint16_t{4});
      propagate(priority.data(), value.data(), lines, 2, 2, 2 * lines);
      for (size_t i = 0; i < count; ++i)
        EXPECT_EQ(value[count + i], i < count / 8 * 8 ? 4 : 6) << "line " << i << " of " << lines;
      // A priority of 32769 decays to 32768, which holds the groups back instead.
      std::fill_n(priority.begin(), count, uint16_t{32769});
      std::fill_n(value.begin() + lines, count, uint16_t{6});
      propagate(priority.data(), value.data(), lines, 2, 3, 2 * lines + 1);
      for (size_t i = 0; i < count; ++i)
        EXPECT_EQ(value[count + i], i < count / 8 * 8 ? 6 : 4) << "line " << i << " of " << lines;
    }
  }
}

}  // namespace
}  // namespace vantrix
