// The memory routines in cases that random scenes do not reach: how rectangles are divided into
// runs, and every length and place near the edges of the code.
#include <gtest/gtest.h>

#include <cstring>
#include <numeric>
#include <vector>

#include "suites/memory/copy.h"
#include "suites/memory/equal.h"
#include "suites/memory/fill.h"
#include "tests/builds.h"

namespace vantrix {
namespace {

// Run routines that only note how they were called.
struct RunCall {
  intptr_t at;
  int32_t count;
  friend bool operator==(const RunCall&, const RunCall&) = default;
};
std::vector<RunCall> calls;
uint8_t base[1];
uint32_t answer = 1;

void ObserveCopy(const uint8_t*, uint8_t* destination, int32_t bytes) {
  calls.push_back({destination - base, bytes});
}
void ObserveFill(uint8_t* destination, int32_t bytes, uint32_t) {
  calls.push_back({destination - base, bytes});
}
void ObserveFillWords(uint16_t* destination, int32_t count, uint32_t) {
  calls.push_back({reinterpret_cast<uint8_t*>(destination) - base, count});
}
uint32_t ObserveEqual(const uint8_t* pointer, int32_t bytes, uint32_t) {
  calls.push_back({pointer - base, bytes});
  return answer;
}

// Returns the runs of a rectangle. The three routines that count bytes must agree.
std::vector<RunCall> RunsOf(int32_t rows, int32_t width, int32_t stride) {
  calls.clear();
  uint8_t* const source = base + 1;
  CopyRect<ObserveCopy>(source, base, rows, width, stride, stride);
  const auto runs = calls;
  calls.clear();
  FillRect<ObserveFill>(base, rows, width, stride, 0);
  EXPECT_EQ(calls, runs);
  calls.clear();
  EXPECT_EQ(RectAllEqual<ObserveEqual>(base, rows, width, stride, 0), 1u);
  EXPECT_EQ(calls, runs);
  return runs;
}

TEST(RectTest, IsOneRunWhereRowsFollowOneAnother) {
  EXPECT_EQ(RunsOf(3, 10, 10), (std::vector<RunCall>{{0, 30}}));
  EXPECT_EQ(RunsOf(3, 10, 11), (std::vector<RunCall>{{0, 10}, {11, 10}, {22, 10}}));
  EXPECT_EQ(RunsOf(2, 10, -10), (std::vector<RunCall>{{0, 10}, {-10, 10}}));
  for (const int32_t none : {0, -1, INT32_MIN}) {
    EXPECT_EQ(RunsOf(none, 10, 10), std::vector<RunCall>{});
    EXPECT_EQ(RunsOf(3, none, none), std::vector<RunCall>{});
  }
}

TEST(RectTest, IsTakenRowByRowFromTheLimitOn) {
  // 0x7FFFFFFE values are one run, 0x80000000 are not.
  EXPECT_EQ(RunsOf(2, 0x3FFFFFFF, 0x3FFFFFFF), (std::vector<RunCall>{{0, 0x7FFFFFFE}}));
  EXPECT_EQ(RunsOf(2, 0x40000000, 0x40000000),
            (std::vector<RunCall>{{0, 0x40000000}, {0x40000000, 0x40000000}}));
  const auto runs = RunsOf(0x10000, 0x8000, 0x8000);
  EXPECT_EQ(runs.size(), 0x10000u);
  EXPECT_EQ(runs.back(), (RunCall{0x7FFF8000, 0x8000}));
}

TEST(RectTest, CopiesOneRunOnlyWhereBothPlanesAreDense) {
  calls.clear();
  CopyRect<ObserveCopy>(base + 1, base, 2, 10, 12, 10);
  CopyRect<ObserveCopy>(base + 1, base, 2, 10, 10, 12);
  EXPECT_EQ(calls, (std::vector<RunCall>{{0, 10}, {10, 10}, {0, 10}, {12, 10}}));
  calls.clear();
  CopyRect<ObserveCopy>(base, base, 2, 10, 12, 14);
  EXPECT_TRUE(calls.empty()) << "source and destination are one";
}

TEST(RectTest, CountsWordsAndNeverRunsOverAnOddStride) {
  const auto runs = [](int32_t rows, int32_t width, int32_t stride) {
    calls.clear();
    FillWordRect<ObserveFillWords>(reinterpret_cast<uint16_t*>(base), rows, width, stride, 0);
    return calls;
  };
  EXPECT_EQ(runs(2, 5, 10), (std::vector<RunCall>{{0, 10}}));
  EXPECT_EQ(runs(2, 5, 11), (std::vector<RunCall>{{0, 5}, {11, 5}}));
  EXPECT_EQ(runs(2, 5, 12), (std::vector<RunCall>{{0, 5}, {12, 5}}));
  EXPECT_EQ(runs(2, 0x3FFFFFFF, 0x7FFFFFFE), (std::vector<RunCall>{{0, 0x7FFFFFFE}}));
}

TEST(RectTest, EndsAtTheFirstRowThatFails) {
  answer = 0;
  calls.clear();
  EXPECT_EQ(RectAllEqual<ObserveEqual>(base, 5, 10, 12, 0), 0u);
  EXPECT_EQ(calls.size(), 1u);
  answer = 1;
}

TEST(CopyTest, MovesOverlappingBytesAtEveryDistance) {
  for (CopyBytesRoutine* copy : BuildsOf<CopyBytesRoutine>(kMemory, 0)) {
    for (int32_t bytes : {1, 2, 3, 7, 8, 15, 16, 17, 32, 33, 64, 65, 127, 128, 129, 200, 400}) {
      for (int32_t apart = -300; apart <= 300; apart += bytes > 130 ? 7 : 1) {
        std::vector<uint8_t> memory(1200);
        std::iota(memory.begin(), memory.end(), uint8_t{0});
        auto expected = memory;
        std::memmove(&expected[400 + apart], &expected[400], static_cast<size_t>(bytes));
        copy(&memory[400], &memory[400 + apart], bytes);
        ASSERT_EQ(memory, expected) << bytes << " bytes " << apart << " apart";
      }
    }
  }
}

TEST(EqualTest, FindsADifferenceAtEveryPlace) {
  for (BytesAllEqualRoutine* isEqual : BuildsOf<BytesAllEqualRoutine>(kMemory, 17)) {
    for (int32_t bytes = 0; bytes <= 700; bytes += bytes < 200 ? 1 : 7) {
      std::vector<uint8_t> memory(static_cast<size_t>(bytes) + 2, 7);
      memory.front() = memory.back() = 8;  // just outside
      ASSERT_EQ(isEqual(&memory[1], bytes, 0xABC07), 1u) << bytes;
      for (int32_t at = 0; at < bytes; ++at) {
        memory[static_cast<size_t>(at) + 1] ^= 0x80;
        ASSERT_EQ(isEqual(&memory[1], bytes, 7), 0u) << bytes << " at " << at;
        memory[static_cast<size_t>(at) + 1] ^= 0x80;
      }
    }
  }
}

}  // namespace
}  // namespace vantrix
