// A pass-through keeps every argument and every kind of result.
#include "plugin/base/pass_through.h"

#include <gtest/gtest.h>
#include <xmmintrin.h>

#include <algorithm>
#include <cstdarg>

#include "host/catalog.h"
#include "plugin/base/builds.h"
#include "plugin/base/processor_info.h"
#include "plugin/base/suites.h"
#include "plugin/startup.h"
#include "tests/fake_host.h"
#include "tests/fake_system.h"

namespace vantrix {
namespace {

constexpr int kSlot = 53;
constexpr auto kJump = Entry<PassThrough<blendSuite, kSlot>>;

template <class Signature>
Signature* Through(Signature* routine) {
  blendSuite.saved[kSlot] = AsRoutine(routine);
  return Call<Signature>(kJump());
}

int64_t Integers(int8_t a, uint16_t b, int32_t c, int64_t d, void* e, int32_t f, int32_t g,
                 int64_t h, uint8_t i, int32_t j) {
  return a + 2 * b + 3 * c + 5 * d + 7 * reinterpret_cast<intptr_t>(e) + 11 * f + 13 * g + 17 * h +
         19 * i + 23 * j;
}
double Floats(double a, int32_t b, float c, double d, int64_t e, float f, double g, double h,
              double i, double j, float k, double l) {
  return a + 2 * b + 3 * c + 5 * d + 7 * double(e) + 11 * f + 13 * g + 17 * h + 19 * i + 23 * j +
         29 * k + 31 * l;
}
struct Large {
  int64_t values[9];
};
Large ReturnedInMemory(Large by, int32_t factor) {
  for (int64_t& value : by.values) value *= factor;
  return by;
}
struct Small {
  float x;
  int32_t y;
};
Small ReturnedInRegisters(float x, int32_t y) { return {x, y}; }
int32_t Variable(int32_t count, ...) {
  va_list list;
  va_start(list, count);
  int32_t sum = 0;
  for (int32_t i = 0; i < count; ++i) sum = sum * 3 + va_arg(list, int32_t);
  va_end(list);
  return sum;
}

TEST(PassThroughTest, KeepsArgumentsInRegistersAndOnTheStack) {
  int place;
  EXPECT_EQ(Through(Integers)(-1, 65535, 1 << 28, -5, &place, 6, 7, int64_t{1} << 40, 255, -10),
            Integers(-1, 65535, 1 << 28, -5, &place, 6, 7, int64_t{1} << 40, 255, -10));
  EXPECT_EQ(Through(Floats)(1.5, 2, 3.25f, 4, 5, 6, 7, 8, 9, 10, 11.5f, 12),
            Floats(1.5, 2, 3.25f, 4, 5, 6, 7, 8, 9, 10, 11.5f, 12));
  EXPECT_EQ(Through(Variable)(7, 1, 2, 3, 4, 5, 6, 7), Variable(7, 1, 2, 3, 4, 5, 6, 7));
}

TEST(PassThroughTest, KeepsStructuresByValueAndAsResults) {
  const Large large{{1, 2, 3, 4, 5, 6, 7, 8, 9}};
  const Large scaled = Through(ReturnedInMemory)(large, 3);
  for (int i = 0; i < 9; ++i) EXPECT_EQ(scaled.values[i], 3 * (i + 1));
  const Small small = Through(ReturnedInRegisters)(1.25f, 77);
  EXPECT_EQ(small.x, 1.25f);
  EXPECT_EQ(small.y, 77);
}

TEST(PassThroughTest, FollowsTheSavedEntryNotTheLiveOne) {
  Routine live[kSlot + 1] = {};
  blendSuite.live = live;
  EXPECT_EQ(Through(Variable)(1, 5), 5);
  live[kSlot] = kJump();  // as installed: following this would never end
  EXPECT_EQ(Call<decltype(Variable)>(live[kSlot])(1, 6), 6);
}

int reached;
void Right() { ++reached; }
void Wrong() { reached += 100; }

// Each passed-through slot calls what was saved for it, not for another.
TEST(PassThroughTest, EachReachesItsOwnEntry) {
  FakeHost host;
  FakeSystem system;
  system.SetFeatures(kMMX | kSSE | kSSE2, kSSE3 | kSSSE3 | kSSE41);
  processorInfo.filled = 0;
  int16_t result;
  const uint32_t control = _mm_getcsr();
  ASSERT_EQ(Startup(host.Block(), &result, system.Table()), 1);
  _mm_setcsr(control);
  int passed = 0;
  const auto tryAll = [&](SuiteIndex suite, auto& acquired) {
    for (const Slot& slot : host::Catalog()[suite].slots) {
      if (slot.IsServed()) continue;
      std::ranges::fill(acquired.saved, Wrong);
      acquired.saved[slot.index] = Right;
      reached = 0;
      host.Live(suite)[slot.index]();
      EXPECT_EQ(reached, 1) << host::Catalog()[suite].name << " " << slot.index;
      ++passed;
    }
  };
  tryAll(kBlend, blendSuite);
  tryAll(kConvert, convertSuite);
  tryAll(kFilter, filterSuite);
  tryAll(kMemory, memorySuite);
  tryAll(kPaint, paintSuite);
  tryAll(kPath, pathSuite);
  tryAll(kResample, resampleSuite);
  tryAll(kSelect, selectSuite);
  EXPECT_EQ(passed, 82);
}

}  // namespace
}  // namespace vantrix
