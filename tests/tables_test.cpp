// The shared tables for all inputs, and the rules that compute the same.
#include "common/tables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "common/rounding.h"

namespace vantrix {
namespace {

// Rounds an exact quotient to nearest, halves away from zero.
int Nearest(double quotient) { return static_cast<int>(std::round(quotient)); }

class TablesTest : public ::testing::Test {
 protected:
  TablesTest() {
    BuildSharedTables();
    FillSSE2Constants();
  }
};

TEST_F(TablesTest, HoldTheRoundedQuotients) {
  for (int a = 0; a < 256; ++a) {
    for (int b = 0; b < 256; ++b) {
      const int product = Nearest(a * b / 255.0);
      ASSERT_EQ(MultiplyTable[a][b], product);
      ASSERT_EQ(ScreenTable[a][b], a + b - product);
      ASSERT_EQ(DivideTable[a][b], b > a ? Nearest(255.0 * a / b) : 255) << a << ' ' << b;
    }
    for (int v = -255; v <= 255; ++v)
      ASSERT_EQ(SignedMultiplyTable[a][255 + v], Nearest(a * v / 255.0)) << a << ' ' << v;
    ASSERT_EQ(SignedMultiplyTable[a][511], 0);
  }
}

TEST_F(TablesTest, HoldTheKnownEntries) {
  EXPECT_EQ(DivideTable[1][2], 128);
  EXPECT_EQ(DivideTable[0][0], 255);
  EXPECT_EQ(SignedMultiplyTable[1][255 + 128], 1);
  EXPECT_EQ(SignedMultiplyTable[1][255 - 128], -1);
  EXPECT_EQ(SignedMultiplyTable[255][0], -255);
}

TEST_F(TablesTest, HoldNineConstants) {
  const char* const expected[9] = {
      "\0\0\0\0",     "\x80\x80\x80\x80", "\x80\0\x80\0", "\xFF\xFF\xFF\xFF", "\xFF\0\xFF\0",
      "\0\x40\0\x40", "\0\x40\0\0",       "\0\x80\0\x80", "\0\x80\0\0",
  };
  static_assert(sizeof SSE2Constants == 9 * 16);
  for (int i = 0; i < 9; ++i)
    for (int at = 0; at < 16; at += 4)
      EXPECT_EQ(std::memcmp(SSE2Constants[i].bytes + at, expected[i], 4), 0) << i << ' ' << at;
}

TEST_F(TablesTest, DivideBy255IsExactForEveryProduct) {
  for (uint32_t product = 0; product <= 255 * 255; product += 8) {
    Lanes<uint16_t, 8> lanes;
    for (uint32_t i = 0; i < 8; ++i)
      lanes[static_cast<int>(i)] = static_cast<uint16_t>(std::min(product + i, 255u * 255u));
    const Lanes<uint16_t, 8> quotient = DivideBy255(lanes);
    for (int i = 0; i < 8; ++i) ASSERT_EQ(quotient[i], Nearest(lanes[i] / 255.0)) << lanes[i];
  }
}

// Compares Multiply, which computes its products, with the table, for all pairs.
TEST_F(TablesTest, ComputedProductsEqualTheTables) {
  for (int a = 0; a < 256; ++a) {
    for (int b = 0; b < 256; b += 16) {
      const auto others = Load<Lanes<uint8_t, 16>>(&MultiplyTable[255][b]);  // b .. b + 15
      const Lanes<uint8_t, 16> products =
          Multiply(Fill<Lanes<uint8_t, 16>>(static_cast<uint8_t>(a)), others);
      ASSERT_TRUE(AllSet(products == Load<Lanes<uint8_t, 16>>(&MultiplyTable[a][b])))
          << a << ' ' << b;
    }
  }
}

}  // namespace
}  // namespace vantrix
