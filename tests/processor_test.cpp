// The processor record and the probes, on processors of all ages.
#include "plugin/base/processor.h"

#include <gtest/gtest.h>

#include "plugin/uncalled_probes.h"
#include "tests/fake_system.h"

namespace vantrix {
namespace {

class ProcessorTest : public ::testing::Test {
 protected:
  ProcessorTest() { processorInfo.filled = 0; }
  const ProcessorInfo& Info() {
    processorInfo.filled = 0;
    return GetProcessorInfo(system.Table());
  }
  FakeSystem system;
};

TEST_F(ProcessorTest, WithoutLeavesOnlyExecutionCounts) {
  system.AddCores(2, 3);
  for (const bool executes : {false, true}) {
    system.executesSSE = executes;
    const ProcessorFeatures has = DetectFeatures(system.Table());
    EXPECT_EQ(has.osSupportsSSE, uint32_t{executes});
    EXPECT_FALSE(has.hasMMX || has.hasSSE || has.hasSSE2 || has.hasSSE3 || has.hasSSSE3 ||
                 has.hasSSE41 || has.isIntelHyperThreaded);
  }
  EXPECT_EQ(Info().coreCount, 0u);
  EXPECT_EQ(Info().logicalCount, 0u);
}

TEST_F(ProcessorTest, RecordsEveryField) {
  system.leaves = {
      {0, {.eax = 7}},
      {1, {.eax = 0x0A5B2C3D | 2 << 12, .ebx = 0x12345678, .ecx = 0x11111111, .edx = 0x22222222}},
      {7, {.ebx = 0x77777777}},
      {0x80000000, {.eax = 0x80000008}},
      {0x80000001, {.ecx = 0x81818181, .edx = 0x82828282}},
      {0x80000008, {.eax = 0x3030, .ecx = 0x88888888}},
  };
  system.AddCores(3, 0x8000000000000001);
  system.relations.push_back({.processorMask = 0xFF, .relationship = 3, .unused = {}});
  const ProcessorInfo& info = Info();
  EXPECT_EQ(info.stepping, 0xDu);
  EXPECT_EQ(info.model, 0x3u);
  EXPECT_EQ(info.family, 0xCu);
  EXPECT_EQ(info.processorType, 2u);
  EXPECT_EQ(info.extendedModel, 0xBu);
  EXPECT_EQ(info.extendedFamily, 0xA5u);
  EXPECT_EQ(info.brandIndex, 8u);
  EXPECT_EQ(info.clflushLineSize, 0x56u);
  EXPECT_EQ(info.features1Ebx, 0x12345678u);
  EXPECT_EQ(info.features1Ecx, 0x11111111u);
  EXPECT_EQ(info.features1Edx, 0x22222222u);
  EXPECT_EQ(info.extFeaturesEcx, 0x81818181u);
  EXPECT_EQ(info.extFeaturesEcx2, 0x81818181u);
  EXPECT_EQ(info.extFeaturesEdx, 0x82828282u);
  EXPECT_EQ(info.addressSizes, 0x3030u);
  EXPECT_EQ(info.leaf80000008Ecx, 0x88888888u);
  EXPECT_EQ(info.features7Ebx, 0x77777777u);
  EXPECT_EQ(info.coreCount, 3u);
  EXPECT_EQ(info.logicalCount, 6u);
  EXPECT_EQ(info.filled, 1);
  EXPECT_EQ(processorInfoIsBegun, 1);

  const int calls = system.cpuidCalls;
  GetProcessorInfo(system.Table());
  EXPECT_EQ(system.cpuidCalls, calls) << "filled once";
}

TEST_F(ProcessorTest, ReadsOnlyLeavesThatThereAre) {
  system.leaves = {{0, {.eax = 6}},
                   {1, {.edx = kSSE}},
                   {7, {.ebx = 0x77777777}},
                   {0x80000000, {.eax = 0x80000000}},
                   {0x80000001, {.ecx = 1, .edx = 1}},
                   {0x80000008, {.eax = 1, .ecx = 1}}};
  EXPECT_EQ(Info().features7Ebx, 0u);
  EXPECT_EQ(Info().extFeaturesEcx, 0u);
  EXPECT_EQ(Info().addressSizes, 0u);
  system.leaves[0x80000000].eax = 0x80000007;
  EXPECT_EQ(Info().extFeaturesEcx, 1u);
  EXPECT_EQ(Info().addressSizes, 0u);
}

TEST_F(ProcessorTest, FallsBackToTheSystemsCountOnEachFailure) {
  using Failure = FakeSystem::CountFailure;
  system.SetFeatures(kSSE, 0);
  system.SetVendor("GenuineIntel");
  system.AddCores(2, 3);
  EXPECT_EQ(Info().coreCount, 2u);
  EXPECT_EQ(IsIntelHyperThreaded(system.Table()), 1);
  for (const Failure failure :
       {Failure::kFirstSucceeds, Failure::kOtherError, Failure::kNoMemory, Failure::kSecondFails}) {
    system.countFailure = failure;
    EXPECT_EQ(Info().coreCount, 4u) << static_cast<int>(failure);
    EXPECT_EQ(Info().logicalCount, 4u);
    EXPECT_EQ(IsIntelHyperThreaded(system.Table()), 0);
  }
  EXPECT_EQ(system.allocations, system.releases);
}

TEST_F(ProcessorTest, ProbesOneBitEach) {
  struct {
    uint8_t (*probe)(const System&);
    uint32_t edx, ecx, leaf7;
  } const cases[] = {
      {HasMMX, 1u << 23, 0, 0},   {HasSSE, 1u << 25, 0, 0},  {HasSSE2, 1u << 26, 0, 0},
      {HasSSE3, 0, 1, 0},         {HasSSSE3, 0, 1u << 9, 0}, {HasSSE41, 0, 1u << 19, 0},
      {HasSSE42, 0, 1u << 20, 0}, {HasAVX, 0, 3u << 27, 0},  {HasAVX2, 0, 3u << 27, 1u << 5},
  };
  for (size_t i = 0; i < std::size(cases); ++i) {
    const auto& c = cases[i];
    const auto probe = [&](uint32_t edx, uint32_t ecx, uint32_t ebx7) {
      system.leaves = {{0, {.eax = 7}}, {1, {.ecx = ecx, .edx = edx}}, {7, {.ebx = ebx7}}};
      processorInfo.filled = 0;
      return c.probe(system.Table());
    };
    EXPECT_EQ(probe(c.edx, c.ecx, c.leaf7), 1) << i;
    EXPECT_EQ(probe(~c.edx, ~c.ecx, ~c.leaf7), 0) << i;
  }
  // Wider registers need a system that saves them, and AVX2 needs AVX.
  for (const uint32_t ecx : {1u << 27, 1u << 28}) {
    system.leaves = {{0, {.eax = 7}}, {1, {.ecx = ecx}}, {7, {.ebx = ~0u}}};
    processorInfo.filled = 0;
    EXPECT_EQ(HasAVX(system.Table()), 0);
    EXPECT_EQ(HasAVX2(system.Table()), 0);
  }
}

TEST_F(ProcessorTest, NeverSeesTheLateTypeNorOtherArchitectures) {
  system.leaves = {{0, {.eax = 7}}, {1, {.eax = ~0u, .ecx = ~0u, .edx = ~0u}}, {7, {.ebx = ~0u}}};
  EXPECT_EQ(Info().processorType, 3u);
  EXPECT_EQ(HasAVX2(system.Table()), 1);
  EXPECT_EQ(HasAVX2OnLateType(system.Table()), 0);
  EXPECT_EQ(HasAltiVec() + HasNEON() + HasVSX(), 0);
}

TEST_F(ProcessorTest, TellsVendorsByAllTwelveCharacters) {
  system.SetVendor("GenuineIntel");
  EXPECT_EQ(IsGenuineIntel(system.Table()), 1);
  EXPECT_EQ(GetVendorCode(system.Table()), 8);
  system.SetVendor("AuthenticAMD");
  EXPECT_EQ(IsGenuineIntel(system.Table()), 2);
  EXPECT_EQ(GetVendorCode(system.Table()), 9);
  system.SetVendor("GenuineIntex");
  EXPECT_EQ(IsGenuineIntel(system.Table()), 0);
  EXPECT_EQ(GetVendorCode(system.Table()), 7);
}

TEST_F(ProcessorTest, CallsOnlyIntelHyperThreaded) {
  system.SetFeatures(0, 0);
  system.AddCores(2, 3);
  system.SetVendor("AuthenticAMD");
  Info();
  EXPECT_EQ(IsIntelHyperThreaded(system.Table()), 0);
  system.SetVendor("GenuineIntel");
  EXPECT_EQ(IsIntelHyperThreaded(system.Table()), 1);
  EXPECT_EQ(GetCoreCount(system.Table()), 2u);
  EXPECT_EQ(GetLogicalCount(system.Table()), 4u);
  system.relations.clear();
  system.AddCores(2, 1);
  Info();
  EXPECT_EQ(IsIntelHyperThreaded(system.Table()), 0) << "one thread a core";
}

TEST_F(ProcessorTest, ReadsTheClockAndClosesTheKeyOnlyOnFailure) {
  EXPECT_EQ(GetClockMegahertz(system.Table()), 2600u);
  EXPECT_EQ(system.openedPath, "Hardware\\Description\\System\\CentralProcessor\\0");
  EXPECT_EQ(system.queriedName, "~MHz");
  EXPECT_EQ(system.closed, 0);
  system.hasValue = false;
  EXPECT_EQ(GetClockMegahertz(system.Table()), 0u);
  EXPECT_EQ(system.closed, 1);
  system.hasKey = false;
  EXPECT_EQ(GetClockMegahertz(system.Table()), 0u);
  EXPECT_EQ(system.opened, 2);
  EXPECT_EQ(system.closed, 1);
}

TEST(ThisSystemTest, AgreesWithTheCompilersView) {
  processorInfo.filled = 0;
  const ProcessorFeatures has = DetectFeatures(kThisSystem);
  EXPECT_EQ(has.osSupportsSSE, 1u);
  EXPECT_EQ(has.hasSSE2, 1u);
  EXPECT_EQ(has.hasSSSE3, uint32_t{__builtin_cpu_supports("ssse3") != 0});
  EXPECT_EQ(has.hasSSE41, uint32_t{__builtin_cpu_supports("sse4.1") != 0});
  EXPECT_GE(GetLogicalCount(kThisSystem), GetCoreCount(kThisSystem));
  EXPECT_GE(GetCoreCount(kThisSystem), 1u);
}

}  // namespace
}  // namespace vantrix
