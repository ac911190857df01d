// Checks which planes overlap by the bytes of each, counted one at a time.
#include "common/overlap.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace vantrix {
namespace {

// Returns a place far inside the address space. It is never accessed.
const uint8_t* PlaceAt(int64_t offset) {
  return reinterpret_cast<const uint8_t*>(static_cast<uintptr_t>((int64_t{1} << 40) + offset));
}

std::set<int64_t> BytesOf(int64_t first, int64_t stride, int64_t rows, int64_t bytes) {
  std::set<int64_t> all;
  for (int64_t y = 0; y < rows; ++y)
    for (int64_t x = 0; x < bytes; ++x) all.insert(first + y * stride + x);
  return all;
}

bool Share(const std::set<int64_t>& a, const std::set<int64_t>& b) {
  for (const int64_t byte : a)
    if (b.contains(byte)) return true;
  return false;
}

class Dice {
 public:
  int64_t Between(int64_t low, int64_t high) {
    return std::uniform_int_distribution<int64_t>(low, high)(engine_);
  }

 private:
  std::mt19937 engine_{1};
};

TEST(OverlapTest, IsToldExactlyWhereStridesAreEqual) {
  Dice dice;
  int apart = 0, over = 0, crossing = 0;
  for (int i = 0; i < 20000; ++i) {
    const int64_t stride = dice.Between(8, 20);
    const int64_t rows[] = {dice.Between(1, 6), dice.Between(1, 6)};
    const int64_t bytes[] = {dice.Between(1, 8), dice.Between(1, 8)};
    const int64_t strides[] = {stride, dice.Between(0, 1) ? stride : -stride};
    const int64_t first[] = {0, dice.Between(-120, 120)};
    const auto a = BytesOf(first[0], strides[0], rows[0], bytes[0]);
    const auto b = BytesOf(first[1], strides[1], rows[1], bytes[1]);
    const bool share = Share(a, b);
    ASSERT_EQ(Overlap({PlaceAt(first[0]), strides[0], rows[0], bytes[0]},
                      {PlaceAt(first[1]), strides[1], rows[1], bytes[1]}),
              share)
        << stride << " " << strides[1] << " " << rows[0] << "x" << bytes[0] << " " << rows[1] << "x"
        << bytes[1] << " " << first[1];
    const bool cross = *a.begin() <= *b.rbegin() && *b.begin() <= *a.rbegin();
    apart += !cross;
    over += share;
    crossing += cross && !share;
  }
  EXPECT_GT(apart, 100);
  EXPECT_GT(over, 100);
  EXPECT_GT(crossing, 100) << "tiles of one picture";
}

TEST(OverlapTest, IsMissedNowhere) {
  Dice dice;
  for (int i = 0; i < 20000; ++i) {
    const int64_t strides[] = {dice.Between(-20, 20), dice.Between(-20, 20)};
    const int64_t rows[] = {dice.Between(1, 6), dice.Between(1, 6)};
    const int64_t bytes[] = {dice.Between(1, 12), dice.Between(1, 12)};
    const int64_t first = dice.Between(-150, 150);
    if (Share(BytesOf(0, strides[0], rows[0], bytes[0]),
              BytesOf(first, strides[1], rows[1], bytes[1]))) {
      ASSERT_TRUE(Overlap({PlaceAt(0), strides[0], rows[0], bytes[0]},
                          {PlaceAt(first), strides[1], rows[1], bytes[1]}))
          << i;
    }
  }
}

TEST(OverlapTest, IsToldExactlyOfRowsOfOneNumber) {
  Dice dice;
  int counts[2] = {};
  for (int i = 0; i < 20000; ++i) {
    const RowPairs pairs{dice.Between(-60, 60), dice.Between(-9, 9), dice.Between(1, 12),
                         dice.Between(1, 12)};
    const auto rows = static_cast<int32_t>(dice.Between(1, 12));
    bool share = false;
    for (int64_t y = 0; y < rows; ++y) {
      const int64_t apart = pairs.apart + y * pairs.drift;
      if (apart == 0 && pairs.bytes == pairs.targetBytes) continue;
      share |= Share(BytesOf(apart, 0, 1, pairs.bytes), BytesOf(0, 0, 1, pairs.targetBytes));
    }
    ++counts[share];
    ASSERT_EQ(OverlapsInPart(pairs, rows), share)
        << pairs.apart << " " << pairs.drift << " " << pairs.bytes << " " << pairs.targetBytes
        << " " << rows;
  }
  EXPECT_GT(counts[0], 100);
  EXPECT_GT(counts[1], 100);
}

// Tiles of one picture, one of which takes every row, every second or third one, or a single one.
TEST(OverlapTest, TellsTilesOfAnyStrideApart) {
  for (const int64_t stride : {32, 64, -32, -64, 96})
    for (const int64_t rows : {1, 5}) {
      EXPECT_FALSE(Overlap({PlaceAt(0), 32, 20, 12}, {PlaceAt(320 + 12), stride, rows, 20}))
          << stride;
      EXPECT_TRUE(Overlap({PlaceAt(0), 32, 20, 12}, {PlaceAt(320 + 11), stride, rows, 20}))
          << stride;
    }
  // The stride of a single row means nothing.
  const PlaneArea tile{PlaceAt(0), 32, 20, 12}, row{PlaceAt(320 + 12), 7, 1, 20};
  EXPECT_FALSE(Overlap(tile, row));
  EXPECT_FALSE(Overlap(row, tile));
  EXPECT_TRUE((PlaneArea{PlaceAt(0), -7, 2, 8}.RowsShareBytes()));
  EXPECT_FALSE((PlaneArea{PlaceAt(0), -8, 2, 8}.RowsShareBytes()));
  EXPECT_FALSE((PlaneArea{PlaceAt(0), 0, 1, 8}.RowsShareBytes()));
}

TEST(OverlapTest, CountsAnyNumberOfRows) {
  const Plane plane{PlaceAt(0), -7};
  const Target target{const_cast<uint8_t*>(PlaceAt(-20)), 5};
  EXPECT_FALSE(OverlapsInPart(plane, target, 1, 20));
  EXPECT_TRUE(OverlapsInPart(plane, target, INT32_MAX, 20));
  EXPECT_TRUE(OverlapsInPart(plane, target, 2, 20));
}

}  // namespace
}  // namespace vantrix
