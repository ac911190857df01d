// What kernels do not write: samples that a rule leaves alone, and blocks in which nothing changes,
// lie on read-only pages.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "common/tables.h"
#include "host/exercise/arena.h"
#include "suites/blend/signatures.h"
#include "suites/select/signatures.h"
#include "tests/builds.h"

namespace vantrix {
namespace {

using Samples = std::vector<uint8_t>;

// Two pages that hold one value; one of them is read-only.
class HalfReadOnly {
 public:
  enum Half { kFirst, kSecond };
  HalfReadOnly(Half half, uint8_t value) : arena_(1, 2 * host::Arena::kPage) {
    BuildSharedTables();
    std::fill_n(arena_.Region(0), 2 * host::Arena::kPage, value);
    if (half == kSecond) arena_.SetWritable(0, 2 * host::Arena::kPage, false);
    arena_.SetWritable(0, host::Arena::kPage, half == kSecond);
  }
  uint8_t* First() const { return arena_.Region(0); }
  uint8_t* Boundary() const { return First() + host::Arena::kPage; }

 private:
  host::Arena arena_;
};

// Blends a row under a mask. The colour of a blend that takes one is the source's first sample.
void BlendRow(const TestedBuild& b, const Samples& source, uint8_t* d, const Samples& mask,
              int columns) {
  if (b.slot == 106)
    Call<MaskFirstBlend>(b.routine)(mask.data(), d, 1, columns, 1, 1, source[0]);
  else if (b.slot == 8 || b.slot == 11 || b.slot == 31)
    Call<ColorMaskedBlend>(b.routine)(source[0], d, mask.data(), 1, columns, 1, 1);
  else
    Call<MaskedBlend>(b.routine)(source.data(), d, mask.data(), 1, columns, 1, 1, 1);
}

// Twenty samples at offset 5, for example, are a head and a tail without a block. With nothing
// selected, none of them may be written, not even with its own value.
TEST(ThresholdTest, WritesNoUnselectedSampleOutsideItsBlocks) {
  const HalfReadOnly pages(HalfReadOnly::kFirst, 0);
  const Samples source(64, 9), below(64, 127), one(64, 1);
  for (const TestedBuild& b : BuildsHere(kBlend, {30, 31, 106}))
    for (int offset = 0; offset < 16; ++offset)
      for (int columns = 1; columns < (-offset & 15) + 16; ++columns)
        BlendRow(b, source, pages.First() + offset, b.slot == 106 ? one : below, columns);
}

// A tail after blocks, which are written.
TEST(ThresholdTest, WritesNoUnselectedSampleBehindItsBlocks) {
  const HalfReadOnly pages(HalfReadOnly::kSecond, 5);
  const Samples source(64, 9);
  for (const TestedBuild& b : BuildsHere(kBlend, {30, 31}))
    for (int blocks = 16; blocks <= 48; blocks += 16)
      for (int tail = 1; tail < 16; ++tail) {
        Samples mask(64, 127);
        std::fill_n(mask.begin(), blocks, uint8_t{200});
        pages.Boundary()[-1] = 5;
        BlendRow(b, source, pages.Boundary() - blocks, mask, blocks + tail);
        EXPECT_EQ(pages.Boundary()[-1], 9);
      }
}

// Masked lighten and darken leave a sample alone if its source is not lighter or darker: in rows
// without a whole block, and in blocks in which this is true of all samples.
TEST(ExtremesInPartTest, WriteNoSampleThatTheyLeaveAlone) {
  const HalfReadOnly pages(HalfReadOnly::kFirst, 100);
  const Samples lighter(512, 101), same(512, 100), darker(512, 99), full(512, 255), none(512, 0);
  for (const TestedBuild& b : BuildsHere(kBlend, {7, 8, 10, 11}))
    for (int offset = 0; offset < 16; ++offset)
      for (int columns = 1; columns < 200; ++columns) {
        uint8_t* const d = pages.First() + offset;
        BlendRow(b, same, d, full, columns);
        BlendRow(b, b.slot >= 10 ? darker : lighter, d, full, columns);
        BlendRow(b, b.slot >= 10 ? lighter : darker, d, none, columns);
      }
}

// One sample changes, in a head or a tail. Those before the boundary are on the read-only page.
TEST(ExtremesInPartTest, WriteNothingBesideASampleThatChanges) {
  const HalfReadOnly pages(HalfReadOnly::kFirst, 100);
  const Samples full(64, 255);
  for (const TestedBuild& b : BuildsHere(kBlend, {7, 10}))
    for (int before = 1; before < 16; ++before)
      for (int at = 0; at < 16 - before; ++at) {
        const uint8_t extreme = b.slot == 10 ? 255 : 0;
        Samples source(32, 100);
        source.data()[before + at] = extreme;
        pages.Boundary()[at] = 100;
        BlendRow(b, source, pages.Boundary() - before, full, before + at + 1);
        EXPECT_EQ(pages.Boundary()[at], extreme) << NameOf(b) << before << at;
      }
}

TEST(ExtremesTest, StoreNoBlockThatStaysAsItIs) {
  const HalfReadOnly pages(HalfReadOnly::kFirst, 100);
  uint8_t* const boundary = pages.Boundary();
  for (const TestedBuild& b : BuildsHere(kBlend, {28, 29})) {
    // A source sample that changes nothing, and one that does.
    const uint8_t same = b.slot == 28 ? 0 : 255, changing = b.slot == 28 ? 255 : 0;
    const auto blend = [&](const Samples& source, uint8_t* d, int columns) {
      Call<PlaneBlend>(b.routine)(source.data(), d, 1, columns, columns, columns);
    };
    blend(Samples(128, same), boundary - 128, 128);  // all of it on the read-only page

    // A step of two blocks around the boundary. The second one changes in one sample.
    for (int at = 0; at < 16; ++at) {
      Samples source(32, same);
      source.data()[16 + at] = changing;
      boundary[at] = 100;
      blend(source, boundary - 16, 32);
      EXPECT_EQ(boundary[at], changing) << NameOf(b) << at;
    }
    // Steps on the read-only page, and after it the remaining
    // 16 to 31 samples, which are written in any case.
    for (int steps = 1; steps <= 4; ++steps)
      for (int left = 16; left < 32; ++left)
        blend(Samples(200, same), boundary - 32 * steps, 32 * steps + left);
  }
}

// A row starts before the boundary, with samples that change. The blocks after it stay as they are.
TEST(ExtremesTest, CountBlocksFromTheBoundary) {
  const HalfReadOnly pages(HalfReadOnly::kSecond, 100);
  for (const TestedBuild& b : BuildsHere(kBlend, {28, 29}))
    for (int head = 1; head < 16; ++head)
      for (int steps = 1; steps <= 4; ++steps) {
        const uint8_t same = b.slot == 28 ? 0 : 255, changing = b.slot == 28 ? 255 : 0;
        const int columns = head + 32 * steps;
        Samples source(static_cast<size_t>(columns), same);
        std::fill_n(source.begin(), head, changing);
        uint8_t* const d = pages.Boundary() - head;
        std::fill(d, pages.Boundary(), uint8_t{100});
        Call<PlaneBlend>(b.routine)(source.data(), d, 1, columns, columns, columns);
        EXPECT_EQ(Samples(d, pages.Boundary()), Samples(static_cast<size_t>(head), changing));
      }
}

// In a row that fills no block, only entries that change are written.
TEST(SpreadMarkTest, WritesInShortRowsOnlyWhatChanges) {
  const HalfReadOnly pages(HalfReadOnly::kSecond, 3);
  for (SpreadMarkRoutine* spread : BuildsOf<SpreadMarkRoutine>(kSelect, 26))
    for (int width = 2; width < 16; ++width)
      for (int before = 1; before < width; ++before) {
        uint8_t* const second = pages.Boundary() - before;
        std::fill(second - 100, pages.Boundary(), uint8_t{3});
        second[-100] = 255;
        spread(second - 100, 2, width, 100);
        EXPECT_EQ(second[0], 131);
      }
}

TEST(SpreadMarkTest, WritesNoRowThatStaysAsItIs) {
  const HalfReadOnly pages(HalfReadOnly::kFirst, 127);
  uint8_t* const boundary = pages.Boundary();
  for (SpreadMarkRoutine* spread : BuildsOf<SpreadMarkRoutine>(kSelect, 26))
    for (int width = 1; width < 140; ++width) {
      spread(pages.First(), 20, width, 200);
      // Rows around the boundary. The second one after it is marked.
      std::fill(boundary, boundary + 200 * 4, uint8_t{127});
      boundary[200] = 255;
      spread(boundary - 200 * 3, 7, width, 200);
      EXPECT_EQ(boundary[0], 255);
    }
}

// An entry that is 32 bytes or more from what changes stays unwritten.
constexpr int kReach = 32, kRowAbove = 1000;
TEST(SpreadMarkTest, WritesNothingFarFromWhatChanges) {
  const HalfReadOnly pages(HalfReadOnly::kSecond, 3);
  for (SpreadMarkRoutine* spread : BuildsOf<SpreadMarkRoutine>(kSelect, 26))
    for (int before = kReach; before < 2 * kReach + 16; ++before)
      for (int width = before + 1; width < before + 100; ++width) {
        uint8_t* const second = pages.Boundary() - before;
        std::fill(second, pages.Boundary(), uint8_t{3});
        second[before - kReach - kRowAbove] = 255;
        spread(second - kRowAbove, 2, width, kRowAbove);
        EXPECT_EQ(second[before - kReach], 131);
        second[before - kReach - kRowAbove] = 3;
      }
}

template <class T, class Signature>
void PropagateBesideReadOnlyLines(uint16_t slot) {
  const HalfReadOnly priorities(HalfReadOnly::kSecond, 0), values(HalfReadOnly::kSecond, 0);
  constexpr int kSize = sizeof(T), kLines = kReach / kSize;
  for (Signature* propagate : BuildsOf<Signature>(kSelect, slot))
    for (int before = kLines; before < 2 * kLines + 16; ++before)
      for (int lines = before + 1; lines < before + 100; ++lines) {
        T* const priority = reinterpret_cast<T*>(priorities.Boundary()) - before;
        T* const value = reinterpret_cast<T*>(values.Boundary()) - before;
        std::fill_n(priority, before, T{});
        std::fill_n(value, before, T{});
        const int receiver = before - kLines;
        priority[receiver - kRowAbove] = 2;
        value[receiver - kRowAbove] = 7;
        propagate(priority - kRowAbove, value - kRowAbove, lines, 2, kSize, kRowAbove * kSize);
        EXPECT_EQ(priority[receiver], 1);
        EXPECT_EQ(value[receiver], 7);
        priority[receiver - kRowAbove] = 0;
        value[receiver - kRowAbove] = 0;
      }
}
TEST(PropagateTest, WritesNothingFarFromWhatReceives) {
  PropagateBesideReadOnlyLines<uint8_t, Propagate8Routine>(35);
  PropagateBesideReadOnlyLines<uint16_t, Propagate16Routine>(73);
}

// Propagates in masks that are all empty, in lines side by side and along rows.
template <class T, class Signature>
void PropagateEmpty(uint16_t slot) {
  const HalfReadOnly priorities(HalfReadOnly::kFirst, 0), values(HalfReadOnly::kFirst, 0);
  constexpr int kSize = sizeof(T), kMost = 140 / kSize;
  auto* const priority = reinterpret_cast<T*>(priorities.First());
  auto* const value = reinterpret_cast<T*>(values.First());
  for (Signature* propagate : BuildsOf<Signature>(kSelect, slot))
    for (int lines = 1; lines < kMost; ++lines) {
      propagate(priority, value, lines, 20, kSize, 140);
      propagate(priority, value, 20, lines, 140, kSize);
    }
}
TEST(PropagateTest, WritesNothingInAnEmptyMask) {
  PropagateEmpty<uint8_t, Propagate8Routine>(35);
  PropagateEmpty<uint16_t, Propagate16Routine>(73);
}

}  // namespace
}  // namespace vantrix
