// The demonstration host's verification finds what is wrong
// in a table, and that affects only its slot.
#include "host/verify.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "host/exercise/fault.h"
#include "plugin/base/interface.h"
#include "suites/blend/signatures.h"
#include "tests/faulting.h"

extern "C" vantrix::PluginMainRoutine PluginMain;

namespace vantrix {
namespace {

class VerifyTest : public ::testing::Test {
 protected:
  VerifyTest() {
    int16_t result;
    EXPECT_EQ(PluginMain(kStartUp, tables.Block(), 0, &result), 1);
  }
  bool IsGood(const char* slot) {
    return host::Verify(tables, nullptr, {3, slot, {}, "vantrix-host"});
  }
  void Put(SuiteIndex suite, int slot, Routine routine) {
    RecordsOf(tables.Block())[suite].routines[slot] = routine;
  }
  host::Tables tables;
};

void DoNothing() {}

TEST_F(VerifyTest, FindsWhatIsWrongInATable) {
  EXPECT_TRUE(IsGood("blnd:2"));
  EXPECT_TRUE(IsGood("blnd:53"));
  EXPECT_TRUE(IsGood("core:3"));
  EXPECT_FALSE(IsGood("blnd:0")) << "nothing is written there";
  Put(kBlend, 2, DoNothing);
  Put(kBlend, 53, DoNothing);
  Put(kBlend, 0, DoNothing);
  Put(kCore, 3, DoNothing);
  Put(kSelect, 26, tables.Default(kSelect, 26));
  for (const char* slot : {"blnd:0", "blnd:2", "blnd:53", "core:3", "sele:26"})
    EXPECT_FALSE(IsGood(slot)) << slot;
}

TEST_F(VerifyTest, GoesOnAfterAFault) {
  Put(kBlend, 2, TouchNull);
  Put(kBlend, 53, TouchNull);
  Put(kBlend, 24, FillStack);
  EXPECT_FALSE(IsGood("blnd:2"));
  EXPECT_FALSE(IsGood("blnd:53"));
  EXPECT_FALSE(IsGood("blnd:24"));
  EXPECT_TRUE(IsGood("blnd:3"));
  const host::FaultWatch watch;
  for (int turn = 0; turn < 3; ++turn)
    EXPECT_STREQ(host::FaultIn(TouchNull), "touched memory that it may not");
  EXPECT_STREQ(host::FaultIn([] { asm volatile("ud2"); }),
               "ran an instruction that this processor does not know");
  EXPECT_STREQ(host::FaultIn([] { throw 1; }), "threw an exception");
  EXPECT_EQ(host::FaultIn(DoNothing), nullptr);
}

// Multiplies, with one wrong sample.
void MultiplyWrongly(const uint8_t* s, uint8_t* d, int32_t rows, int32_t columns, int32_t ss,
                     int32_t ds) {
  Call<PlaneBlend>(host::FindReference(host::Catalog()[kBlend], 24)->routine)(s, d, rows, columns,
                                                                              ss, ds);
  if (rows > 2 && columns > 7) d[2 * intptr_t{ds} + 7] ^= 1;
}

// The samples that are named are those that the wrong one was made from.
TEST_F(VerifyTest, TellsWhatTheWrongSampleWasMadeFrom) {
  Put(kBlend, 24, reinterpret_cast<Routine>(MultiplyWrongly));
  ::testing::internal::CaptureStdout();
  EXPECT_FALSE(host::Verify(tables, nullptr, {100, "blnd:24", {}, "vantrix-host"}));
  const std::string said = ::testing::internal::GetCapturedStdout();
  std::smatch match;
  ASSERT_TRUE(std::regex_search(
      said, match,
      std::regex("destination, row 2, sample 7: expected (\\d+), got (\\d+)\n"
                 " +called with source at \\.\\.\\w+, destination at \\.\\.\\w+, rows \\d+.*\n"
                 " +before: source, row 2, sample \\d on:[ 0-9]* \\[(\\d+)\\][ 0-9]*\n"
                 " +before: destination, row 2, sample \\d on:[ 0-9]* \\[(\\d+)\\]")))
      << said;
  const int expected = std::stoi(match[1]), product = std::stoi(match[3]) * std::stoi(match[4]);
  EXPECT_EQ(expected, (2 * product + 255) / 510);
  EXPECT_EQ(std::stoi(match[2]), expected ^ 1);
}

}  // namespace
}  // namespace vantrix
