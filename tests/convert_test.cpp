// The conversions for all samples, and what they hand to the host.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "plugin/base/suites.h"
#include "suites/convert/conversions.h"
#include "tests/builds.h"
#include "tests/fake_host.h"

namespace vantrix {
namespace {

constexpr int32_t kAll = 65536;

std::vector<uint16_t> AllWords() {
  std::vector<uint16_t> words(kAll);
  for (size_t i = 0; i < kAll; ++i) words[i] = static_cast<uint16_t>(i);
  return words;
}

TEST(RescaleTest, RoundsEverySampleOfBothPairs) {
  for (RescaleWordsRoutine* rescale : BuildsOf<RescaleWordsRoutine>(kConvert, 19)) {
    auto words = AllWords();
    EXPECT_EQ(rescale(words.data(), 0xFFFF, 0x8000, 1, kAll, 0), 0u);
    for (int v = 0; v < kAll; ++v)
      ASSERT_EQ(words[static_cast<size_t>(v)], std::lround(v * 32768.0 / 65535)) << v;
    words = AllWords();
    rescale(words.data(), 0x8000, 0xFFFF, 1, kAll, 0);
    for (int v = 0; v < kAll; ++v)
      ASSERT_EQ(words[static_cast<size_t>(v)],
                v > 0x7FFF ? 0xFFFF : static_cast<int>(std::floor(v * 65535.0 / 32768 + 0.5)))
          << v;
    EXPECT_EQ(words[0x4000], 0x8000);
  }
}

TEST(ExpandTest, RoundsEverySample) {
  std::vector<uint8_t> bytes(256);
  for (size_t i = 0; i < 256; ++i) bytes[i] = static_cast<uint8_t>(i);
  for (Expand8To16Routine* expand : BuildsOf<Expand8To16Routine>(kConvert, 18)) {
    std::vector<uint16_t> words(256);
    expand(bytes.data(), words.data(), 1, 256, 256, 512);
    for (int v = 0; v < 256; ++v)
      EXPECT_EQ(words[static_cast<size_t>(v)], std::lround(v * 32768 / 255.0)) << v;
    EXPECT_EQ(words[128], 16448);
  }
}

struct RescaleCall {
  uint16_t* samples;
  uint32_t from, to;
  int32_t rows, width, stride;
  friend bool operator==(const RescaleCall&, const RescaleCall&) = default;
};
RescaleCall seen;
uint64_t HostRescale(uint16_t* samples, uint32_t from, uint32_t to, int32_t rows, int32_t width,
                     int32_t stride) {
  seen = {samples, from, to, rows, width, stride};
  return 0xFEDCBA9876543210;
}

TEST(RescaleTest, HandsOtherPairsToTheHostAsTheyCame) {
  convertSuite.saved[19] = AsRoutine(HostRescale);
  uint16_t word = 5;
  for (RescaleWordsRoutine* rescale : BuildsOf<RescaleWordsRoutine>(kConvert, 19)) {
    for (const auto& [from, to] : {std::pair{0xFFFFu, 0xFFFFu},
                                   {0x8000u, 0x8000u},
                                   {0xFFu, 0x8000u},
                                   {0x1FFFFu, 0x8000u},
                                   {0x8000u, 0xFFFEu}}) {
      seen = {};
      EXPECT_EQ(rescale(&word, from, to, -7, -8, 9), 0xFEDCBA9876543210u);
      EXPECT_EQ(seen, (RescaleCall{&word, from, to, -7, -8, 9}));
    }
  }
  EXPECT_EQ(word, 5);
}

}  // namespace
}  // namespace vantrix
