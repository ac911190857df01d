// The blends over all inputs.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "common/tables.h"
#include "suites/blend/kernels.h"

namespace vantrix {
namespace {

constexpr int32_t kPairs = 65536;

// A plane of 256 rows: sample (y, x) pairs every s = x with every d = y.
struct Pairs {
  std::vector<uint8_t> s, d;
  Pairs() : s(kPairs), d(kPairs) {
    for (int i = 0; i < kPairs; ++i) {
      s[i] = static_cast<uint8_t>(i);
      d[i] = static_cast<uint8_t>(i >> 8);
    }
  }
};

template <class Form>
class BlendTest : public ::testing::Test {
 protected:
  BlendTest() { BuildSharedTables(); }
  void SetUp() override {
    if (std::is_same_v<Form, Ssse3> && !__builtin_cpu_supports("ssse3"))
      GTEST_SKIP() << "not on this processor";
  }
};
using Forms = ::testing::Types<OneSample, Sse2, Ssse3>;
TYPED_TEST_SUITE(BlendTest, Forms);

int Nearest(double quotient) { return static_cast<int>(std::lround(quotient)); }

// The quotient is never halfway, so nearest needs no rule for halves.
TYPED_TEST(BlendTest, MixesUnderAMaskForEveryInput) {
  const Pairs pairs;
  for (int m = 0; m < 256; ++m) {
    auto mixed = pairs.d;
    const std::vector<uint8_t> mask(kPairs, static_cast<uint8_t>(m));
    BlendMasked8<TypeParam>(pairs.s.data(), mixed.data(), mask.data(), 256, 256, 256, 256, 256);
    for (int i = 0; i < kPairs; ++i) {
      const int s = pairs.s[i], d = pairs.d[i];
      ASSERT_EQ(mixed[i], Nearest((s * m + d * (255 - m)) / 255.0)) << s << ' ' << d << ' ' << m;
    }
  }
}

TYPED_TEST(BlendTest, MixesAColorUnderAMaskForEveryInput) {
  const Pairs pairs;  // s serves as the mask
  for (uint32_t c = 0; c < 256; ++c) {
    auto mixed = pairs.d;
    BlendColorMasked8<TypeParam>(c | 0xFFFFFF00, mixed.data(), pairs.s.data(), 256, 256, 256, 256);
    for (int i = 0; i < kPairs; ++i) {
      const int m = pairs.s[i], d = pairs.d[i];
      ASSERT_EQ(mixed[i], Nearest((int(c) * m + d * (255 - m)) / 255.0))
          << c << ' ' << d << ' ' << m;
    }
  }
}

}  // namespace
}  // namespace vantrix
