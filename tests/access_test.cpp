// What is true at the moment of an access: kernels are stopped at memory that they may not access.
// And rows that need no access are not walked.
#include <gtest/gtest.h>
#include <setjmp.h>
#include <signal.h>
#include <sys/mman.h>
#include <ucontext.h>
#include <unistd.h>
#include <xmmintrin.h>

#include <cstring>
#include <ctime>
#include <functional>
#include <optional>
#include <vector>

#include "plugin/core.h"
#include "suites/blend/signatures.h"
#include "suites/convert/signatures.h"
#include "suites/filter/signatures.h"
#include "suites/memory/signatures.h"
#include "suites/resample/signatures.h"
#include "suites/select/signatures.h"
#include "tests/builds.h"
#include "tests/fake_host.h"

namespace vantrix {
namespace {

sigjmp_buf behindTheFault;
uint32_t controlAtTheFault;

void NoteFault(int, siginfo_t*, void* context) {
  controlAtTheFault = static_cast<ucontext_t*>(context)->uc_mcontext.fpregs->mxcsr;
  siglongjmp(behindTheFault, 1);
}

// Returns the floating-point control when work() accessed what it may not; none if it did not.
std::optional<uint32_t> ControlAtFaultIn(const std::function<void()>& work) {
  struct sigaction action = {}, before;
  action.sa_sigaction = NoteFault;
  action.sa_flags = SA_SIGINFO;
  sigaction(SIGSEGV, &action, &before);
  const uint32_t control = _mm_getcsr();
  std::optional<uint32_t> found;
  if (sigsetjmp(behindTheFault, 1) == 0)
    work();
  else
    found = controlAtTheFault;
  _mm_setcsr(control);
  sigaction(SIGSEGV, &before, nullptr);
  return found;
}

// Address space in which only pages that are opened may be accessed.
class Space {
 public:
  explicit Space(size_t bytes)
      : bytes_(bytes),
        first_(static_cast<uint8_t*>(
            mmap(nullptr, bytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0))) {}
  ~Space() { munmap(first_, bytes_); }
  Space(const Space&) = delete;
  Space& operator=(const Space&) = delete;

  uint8_t* At(size_t offset) const { return first_ + offset; }
  uint8_t* Open(size_t offset, size_t bytes) const {
    EXPECT_EQ(mprotect(At(offset), bytes, PROT_READ | PROT_WRITE), 0);
    return At(offset);
  }

 private:
  size_t bytes_;
  uint8_t* first_;
};
const size_t kPage = static_cast<size_t>(getpagesize());

TEST(DivisionTest, WorksWithTruncationInEveryEntryMode) {
  using ScreenShare = void(uint8_t*, uint8_t*, int32_t, int32_t, int32_t, int32_t);
  using Burn =
      void(const uint8_t*, uint8_t*, const uint8_t*, int32_t, int32_t, int32_t, int32_t, int32_t);
  const Space space(kPage);
  uint8_t* const closed = space.At(0);
  std::vector<uint8_t> plane(64);
  for (const uint32_t mode : {0u, 0x2000u, 0x4000u, 0x6000u}) {
    const auto expectTruncation = [&](const TestedBuild& build, const std::function<void()>& work) {
      const auto control = ControlAtFaultIn([&] {
        _mm_setcsr((_mm_getcsr() & ~0x6000u) | mode);
        work();
      });
      ASSERT_TRUE(control) << NameOf(build);
      EXPECT_EQ(*control & 0x6000, 0x6000u) << NameOf(build);
    };
    for (const TestedBuild& build : BuildsHere(kBlend, {66}))
      expectTruncation(build, [&] {
        Call<Burn>(build.routine)(plane.data(), closed, plane.data(), 1, 64, 64, 64, 64);
      });
    for (const TestedBuild& build : BuildsHere(kBlend, {96}))
      expectTruncation(
          build, [&] { Call<ScreenShare>(build.routine)(plane.data(), closed, 1, 64, 64, 64); });
  }
}

// Numbers of rows from 2^31 on are rows: kernels walk on past the end of the open page.
// Calls routines with as many rows as there can be. To walk them all would take seconds.
template <class Signature, class... Arguments>
void ExpectToReturnAtOnce(SuiteIndex suite, std::initializer_list<uint16_t> slots,
                          Arguments... arguments) {
  for (const TestedBuild& b : BuildsHere(suite, slots)) {
    const std::clock_t before = std::clock();
    Call<Signature>(b.routine)(arguments...);
    EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC) << NameOf(b);
  }
}

TEST(RowsTest, AreNotWalkedWithoutColumns) {
  constexpr int32_t kMost = INT32_MAX;
  uint8_t s[64] = {}, d[64] = {}, m[64] = {};
  uint16_t w[64] = {};
  ExpectToReturnAtOnce<PlaneBlend>(kBlend, {24, 27, 28, 29, 49, 52}, s, d, kMost, 0, 0, 0);
  ExpectToReturnAtOnce<OpacityBlend>(kBlend, {56, 57, 58, 59}, s, d, kMost, 0, 0, 0, 9u);
  ExpectToReturnAtOnce<MaskedBlend>(kBlend, {2, 7, 10, 22, 30, 47, 50}, s, d, m, kMost, 0, 0, 0, 0);
  ExpectToReturnAtOnce<ColorMaskedBlend>(kBlend, {3, 8, 11, 26, 31, 48, 51}, 9u, d, m, kMost, 0, 0,
                                         0);
  ExpectToReturnAtOnce<PlanesBlend>(kBlend, {66, 74, 75}, s, d, m, kMost, 0, 0, 0, 0);
  ExpectToReturnAtOnce<InvertBlend>(kBlend, {97}, s, m, d, kMost, 0, 0, 0, 0, 0u, 0u, 0u);
  ExpectToReturnAtOnce<ShareBlend>(kBlend, {96}, s, d, kMost, 0, 0, 0);
  ExpectToReturnAtOnce<MaskFirstBlend>(kBlend, {106}, m, d, kMost, 0, 0, 0, 9u);
  ExpectToReturnAtOnce<RescaleWordsRoutine>(kConvert, {19}, w, 0xFFFFu, 0x8000u, kMost, 0, 0);
  ExpectToReturnAtOnce<Expand8To16Routine>(kConvert, {18}, s, w, kMost, 0, 0, 0);
  ExpectToReturnAtOnce<CopyRectRoutine>(kMemory, {1}, s, d, kMost, 0, 0, 0);
  ExpectToReturnAtOnce<FillRectRoutine>(kMemory, {4}, d, kMost, 0, 0, 9u);
  ExpectToReturnAtOnce<FillWordRectRoutine>(kMemory, {66}, w, kMost, 0, 0, 9u);
  ExpectToReturnAtOnce<RectAllEqualRoutine>(kMemory, {18}, d, kMost, 0, 0, 9u);
  ExpectToReturnAtOnce<SpreadMarkRoutine>(kSelect, {26}, d, kMost, 0, 0);
  ExpectToReturnAtOnce<BoxAverageRows>(kResample, {3}, s, d, kMost, 0, nullptr, 0, 0);
  ExpectToReturnAtOnce<BoxAverageArea>(kResample, {24}, s, d, kMost, 0, 3, 3, 0, 0);
}

TEST(RowsTest, AreUnsignedInConvolutionAndHorizontalFilters) {
  constexpr uint32_t kRows = 0x80000000;
  const Space space(3 * kPage);
  uint8_t* const destination = space.Open(kPage, kPage);
  const auto stride = static_cast<int32_t>(kPage);
  std::vector<uint8_t> source(kPage, 7);
  std::vector<uint8_t> kernel(84 + 4 * 3);
  const int32_t radius = 1;
  std::memcpy(&kernel[80], &radius, 4);
  for (const TestedBuild& build : BuildsHere(kFilter, {28}))
    EXPECT_TRUE(ControlAtFaultIn([&] {
      Call<ConvolveRoutine>(build.routine)(
          source.data() + 64, destination, kRows, 64, 0, stride,
          reinterpret_cast<const ConvolutionKernel*>(kernel.data()));
    })) << NameOf(build);

  const std::vector<int32_t> offsets(64);
  const std::vector<uint8_t> phases(64);
  const std::vector<int16_t> weights(256 * 4);
  const auto filter = [&]<class Sample>(uint16_t slot, Sample) {
    for (const TestedBuild& build : BuildsHere(kResample, {slot}))
      EXPECT_TRUE(ControlAtFaultIn([&] {
        Call<FilterHorizontal<Sample>>(build.routine)(
            reinterpret_cast<const Sample*>(source.data() + 64),
            reinterpret_cast<Sample*>(destination), kRows, 64, offsets.data(), phases.data(), 0,
            stride, 4, weights.data());
      })) << NameOf(build);
  };
  filter(5, uint8_t{});
  filter(13, uint16_t{});
  filter(26, float{});
}

// Whatever follows a mixed row cannot change the class.
TEST(ClassifyTest, EndsAtTheRowThatIsMixed) {
  const Space space(2 * kPage);
  uint8_t* const first = space.Open(0, kPage);
  const auto bytes = static_cast<int32_t>(kPage);
  for (const TestedBuild& build : BuildsHere(kSelect, {33})) {
    std::memset(first, 0, kPage);
    first[100] = 255;
    int32_t answer = -1;
    EXPECT_FALSE(ControlAtFaultIn([&] {
      answer = Call<Classify8Routine>(build.routine)(first, 1000, bytes, bytes);
    })) << NameOf(build);
    EXPECT_EQ(answer, 2);
  }
  for (const TestedBuild& build : BuildsHere(kSelect, {75})) {
    // One lane is above half, all others are empty.
    std::memset(first, 0, kPage);
    for (size_t i = 0; i < kPage; i += 16) first[i] = 0, first[i + 1] = 0x70;
    int32_t answer = -1;
    EXPECT_FALSE(ControlAtFaultIn([&] {
      answer = Call<Classify16Routine>(build.routine)(reinterpret_cast<uint16_t*>(first), 1000,
                                                      bytes / 2, bytes);
    })) << NameOf(build);
    EXPECT_EQ(answer, 2);
  }
}

TEST(AverageTest, AdvancesByMoreThanFourGigabytes) {
  constexpr size_t kStride = size_t{1} << 30;
  const Space space(7 * kStride);
  for (size_t row = 0; row < 6; ++row)
    std::memset(space.Open(row * kStride, kPage), row < 5 ? 10 : 90, 64);
  const int32_t counts[] = {5, 1};
  for (const TestedBuild& build : BuildsHere(kResample, {3})) {
    std::vector<uint8_t> destination(2 * 64);
    EXPECT_FALSE(ControlAtFaultIn([&] {
      Call<BoxAverageRows>(build.routine)(space.At(0), destination.data(), 2, 64, counts,
                                          static_cast<int32_t>(kStride), 64);
    })) << NameOf(build);
    EXPECT_EQ(destination[63], 10) << NameOf(build);
    EXPECT_EQ(destination[64], 90) << NameOf(build);
  }
}

}  // namespace
}  // namespace vantrix
