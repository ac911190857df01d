// Which forms a processor and its system allow. What each wide form needs is listed here again, bit
// by bit, so that a mistake in the table of detection shows.
#include "plugin/base/instruction_sets.h"

#include <cpuid.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "form_macros.h"
#include "tests/builds.h"
#include "tests/fake_system.h"

namespace vantrix {
namespace {

using Bits = std::vector<int>;

struct Need {
  Bits leaf1Ecx, leaf7Ebx, leaf7Ecx;
};
const Need kAvx2Need = {{9, 19, 20, 23, 27, 28}, {5}, {}};
const Need kAvx512Need = {
    {9, 12, 19, 20, 23, 27, 28, 29}, {5, 16, 17, 21, 28, 30, 31}, {1, 6, 8, 9, 10, 11, 12, 14}};

bool Has(const Bits& bits, int bit) { return std::count(bits.begin(), bits.end(), bit) > 0; }
uint32_t WordOf(const Bits& bits) {
  uint32_t word = 0;
  for (const int bit : bits) word |= 1u << bit;
  return word;
}

class InstructionSetsTest : public ::testing::Test {
 protected:
  // A processor that has everything, under a system that saves everything.
  InstructionSetsTest() {
    system.leaves[0].eax = 7;
    system.leaves[1].ecx = ~0u;
    system.leaves[7] = {.eax = 0, .ebx = ~0u, .ecx = ~0u, .edx = 0};
    system.enabledState = 0xE7;
    has.hasSSE2 = has.hasSSSE3 = 1;
  }
  InstructionSets Detect() { return DetectInstructionSets(system.Table(), has); }
  void ExpectWide(bool avx2, bool avx512) {
    EXPECT_EQ(Detect().avx2, avx2);
    EXPECT_EQ(Detect().avx512, avx512);
  }

  FakeSystem system;
  ProcessorFeatures has{};
};

TEST_F(InstructionSetsTest, NeedTheirBitsAndNoOthers) {
  ExpectWide(true, true);
  const auto play = [&](const Need& need, uint64_t enabled) {
    system.leaves[1].ecx = WordOf(need.leaf1Ecx);
    system.leaves[7].ebx = WordOf(need.leaf7Ebx);
    system.leaves[7].ecx = WordOf(need.leaf7Ecx);
    system.enabledState = enabled;
  };
  play(kAvx2Need, 0x06);
  ExpectWide(true, false);
  play(kAvx512Need, 0xE6);
  ExpectWide(true, true);
}

TEST_F(InstructionSetsTest, NeedEachBitByItself) {
  const struct {
    const char* name;
    uint32_t& word;
    Bits Need::* need;
  } words[] = {{"leaf 1 ECX", system.leaves[1].ecx, &Need::leaf1Ecx},
               {"leaf 7 EBX", system.leaves[7].ebx, &Need::leaf7Ebx},
               {"leaf 7 ECX", system.leaves[7].ecx, &Need::leaf7Ecx}};
  for (const auto& [name, word, need] : words) {
    for (int bit = 0; bit < 32; ++bit) {
      SCOPED_TRACE(testing::Message() << name << " without bit " << bit);
      word = ~(1u << bit);
      ExpectWide(!Has(kAvx2Need.*need, bit), !Has(kAvx512Need.*need, bit));
    }
    word = ~0u;
  }
}

TEST_F(InstructionSetsTest, NeedASystemThatSavesTheirRegisters) {
  const struct {
    uint64_t enabled;
    bool avx2, avx512;
  } cases[] = {
      {0, false, false},    {3, false, false},    {5, false, false},
      {7, true, false},     {6, true, false},     {0x21B, false, false},
      {0xE7, true, true},   {0xE6, true, true},   {0x602E7, true, true},
      {0xE3, false, false}, {0xE5, false, false}, {0xE1, false, false},
      {0xC7, true, false},  {0xA7, true, false},  {0x67, true, false},
      {0x1F, true, false},  {0x21F, true, false}, {uint64_t{0xE7} << 32, false, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "enabled state " << c.enabled);
    system.enabledState = c.enabled;
    ExpectWide(c.avx2, c.avx512);
  }
  system.enabledState = 0xE7;
  system.leaves[1].ecx &= ~(1u << 28);
  ExpectWide(false, false);
}

// On other processors the instruction that reads the enabled state faults.
TEST_F(InstructionSetsTest, ReadTheEnabledStateOnlyWhereTheProcessorSaysThatItCan) {
  system.leaves[1].ecx = ~(1u << 27);
  ExpectWide(false, false);
  EXPECT_EQ(system.enabledStateReads, 0);
  system.leaves[1].ecx = 1u << 27;
  Detect();
  EXPECT_EQ(system.enabledStateReads, 1);
}

TEST_F(InstructionSetsTest, ReadOnlyLeavesThatThereAre) {
  for (const uint32_t highest : {0u, 1u, 6u, 7u, 13u, 0x20u}) {
    SCOPED_TRACE(testing::Message() << "highest leaf " << highest);
    system.leaves[0].eax = highest;
    ExpectWide(highest >= 7, highest >= 7);
  }
}

TEST_F(InstructionSetsTest, FollowTheFlags) {
  has.hasSSSE3 = 0;
  EXPECT_TRUE(Detect().sse2);
  EXPECT_FALSE(Detect().ssse3);
  ExpectWide(true, true);
  has.hasSSE2 = 0, has.hasSSSE3 = 1;
  EXPECT_FALSE(Detect().sse2);
  EXPECT_TRUE(Detect().ssse3);
  ExpectWide(false, false);
  system.leaves.clear();
  has.hasSSE2 = 1;
  EXPECT_TRUE(Detect().sse2 && Detect().ssse3);
  ExpectWide(false, false);
}

// The compiler may use whatever a form's flags allow, so detection must ask for each such set. Sets
// that come with another one are asked for with it.
TEST_F(InstructionSetsTest, AskForAllThatTheCompilerIsAllowed) {
  using Ask = std::function<void(FakeSystem&)>;
  const auto leaf1 = [](int bit) {
    return [=](FakeSystem& s) { s.leaves[1].ecx &= ~(1u << bit); };
  };
  const auto ebx7 = [](int bit) { return [=](FakeSystem& s) { s.leaves[7].ebx &= ~(1u << bit); }; };
  const auto ecx7 = [](int bit) { return [=](FakeSystem& s) { s.leaves[7].ecx &= ~(1u << bit); }; };
  const std::map<std::string, Ask> asked = {
      {"__SSE3__", leaf1(9)},
      {"__SSSE3__", leaf1(9)},
      {"__SSE4_1__", leaf1(19)},
      {"__SSE4_2__", leaf1(20)},
      {"__CRC32__", leaf1(20)},
      {"__POPCNT__", leaf1(23)},
      {"__XSAVE__", leaf1(27)},
      {"__AVX__", leaf1(28)},
      {"__FMA__", leaf1(12)},
      {"__F16C__", leaf1(29)},
      {"__AVX2__", ebx7(5)},
      {"__AVX512F__", ebx7(16)},
      {"__EVEX256__", ebx7(16)},
      {"__EVEX512__", ebx7(16)},
      {"__AVX512DQ__", ebx7(17)},
      {"__AVX512IFMA__", ebx7(21)},
      {"__AVX512CD__", ebx7(28)},
      {"__AVX512BW__", ebx7(30)},
      {"__AVX512VL__", ebx7(31)},
      {"__AVX512VBMI__", ecx7(1)},
      {"__AVX512VBMI2__", ecx7(6)},
      {"__GFNI__", ecx7(8)},
      {"__VAES__", ecx7(9)},
      {"__VPCLMULQDQ__", ecx7(10)},
      {"__AVX512VNNI__", ecx7(11)},
      {"__AVX512BITALG__", ecx7(12)},
      {"__AVX512VPOPCNTDQ__", ecx7(14)},
  };
  const auto runs = [&]<class Form>(FakeSystem s, Form) {
    has.hasSSE2 = 1, has.hasSSSE3 = s.leaves[1].ecx >> 9 & 1;
    return Form::RunsOn(DetectInstructionSets(s.Table(), has));
  };
  Forms::ForEach([&]<class Form>() {
    ASSERT_TRUE(runs(system, Form{})) << Form::kName;
    std::istringstream macros(kMacros<Form>);
    for (std::string macro; macros >> macro;) {
      const auto found = asked.find(macro);
      ASSERT_NE(found, asked.end()) << Form::kName << " is compiled with " << macro;
      FakeSystem without = system;
      found->second(without);
      EXPECT_FALSE(runs(without, Form{})) << Form::kName << " is compiled with " << macro;
    }
  });
  EXPECT_NE(std::string(kMacros<Avx2>).find("__AVX2__"), std::string::npos) << "macros are read";
}

// The compiler's detection does not know VAES.
bool HasVaes() {
  unsigned a = 0, b = 0, c = 0, d = 0;
  return __get_cpuid_count(7, 0, &a, &b, &c, &d) != 0 && (c >> 9 & 1) != 0;
}

// Compares the system tables of both targets with the compiler's own detection.
TEST(ThisSystemTest, AgreesWithTheCompilersView) {
  const bool avx2 = __builtin_cpu_supports("ssse3") && __builtin_cpu_supports("sse4.1") &&
                    __builtin_cpu_supports("sse4.2") && __builtin_cpu_supports("popcnt") &&
                    __builtin_cpu_supports("avx2");
  const bool avx512 =
      avx2 && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
      __builtin_cpu_supports("avx512ifma") && __builtin_cpu_supports("avx512cd") &&
      __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl") &&
      __builtin_cpu_supports("avx512vbmi") && __builtin_cpu_supports("avx512vbmi2") &&
      __builtin_cpu_supports("gfni") && __builtin_cpu_supports("vpclmulqdq") && HasVaes() &&
      __builtin_cpu_supports("avx512vnni") && __builtin_cpu_supports("avx512bitalg") &&
      __builtin_cpu_supports("avx512vpopcntdq");
  const InstructionSets here = InstructionSetsHere();
  EXPECT_TRUE(here.sse2);
  EXPECT_EQ(here.ssse3, __builtin_cpu_supports("ssse3") != 0);
  EXPECT_EQ(here.avx2, avx2);
  EXPECT_EQ(here.avx512, avx512);
}

}  // namespace
}  // namespace vantrix
