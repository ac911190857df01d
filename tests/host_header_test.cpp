// Compares include/vantrix.h with the plug-in. The compiler compares the type of every served slot
// with its kernel, and each structure and number. A test compares what is in the header as text.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <type_traits>

#include "common/forms.h"
#include "host/catalog.h"
#include "include/vantrix.h"
#include "plugin/base/interface.h"
#include "plugin/core.h"
#include "plugin/core_slots.h"
#include "suites/blend/kernels.h"
#include "suites/blend/slots.h"
#include "suites/convert/conversions.h"
#include "suites/convert/slots.h"
#include "suites/filter/convolve.h"
#include "suites/filter/deviation.h"
#include "suites/filter/differences.h"
#include "suites/filter/float_blocks.h"
#include "suites/filter/slots.h"
#include "suites/memory/copy.h"
#include "suites/memory/equal.h"
#include "suites/memory/fill.h"
#include "suites/memory/slots.h"
#include "suites/paint/slots.h"
#include "suites/path/debug.h"
#include "suites/path/fill_array.h"
#include "suites/path/slots.h"
#include "suites/resample/box.h"
#include "suites/resample/horizontal.h"
#include "suites/resample/positions.h"
#include "suites/resample/slots.h"
#include "suites/resample/stepped.h"
#include "suites/resample/vertical.h"
#include "suites/select/classify.h"
#include "suites/select/marks.h"
#include "suites/select/propagate.h"
#include "suites/select/slots.h"

namespace vantrix {
namespace {

// The plug-in's own type for a type of the header.
template <class Stated>
struct Own {
  using Type = Stated;
};
template <class Stated>
struct Own<Stated*> {
  using Type = typename Own<Stated>::Type*;
};
template <class Stated>
struct Own<const Stated> {
  using Type = const typename Own<Stated>::Type;
};
template <class Result, class... Arguments>
struct Own<Result(Arguments...)> {
  using Type = typename Own<Result>::Type(typename Own<Arguments>::Type...);
};
template <>
struct Own<VantrixSuiteRecord> {
  using Type = SuiteRecord;
};
template <>
struct Own<VantrixParameterBlock> {
  using Type = SuiteParameterBlock;
};
template <>
struct Own<VantrixConvolutionKernel> {
  using Type = ConvolutionKernel;
};
template <>
struct Own<VantrixFillArray> {
  using Type = FillArray;
};

template <class Stated, class Actual>
constexpr bool kAgree = std::is_same_v<typename Own<Stated>::Type, std::remove_reference_t<Actual>>;

// A slot as the header states it, and whether its type is that of the kernel.
struct Stated {
  SuiteIndex suite;
  int slot;
  bool agrees;
};
template <class Type, class Kernel>
constexpr Stated As(SuiteIndex suite, int slot) {
  return {suite, slot, kAgree<Type, Kernel>};
}
constexpr Stated kStated[] = {
    As<VantrixBlendMasked8, decltype(BlendMasked8<Sse2>)>(kBlend, kVantrixBlendMasked8),
    As<VantrixBlendColorMasked8, decltype(BlendColorMasked8<Sse2>)>(kBlend,
                                                                    kVantrixBlendColorMasked8),
    As<VantrixBlendDarkenMasked8, decltype(BlendDarkenMasked8<Sse2>)>(kBlend,
                                                                      kVantrixBlendDarkenMasked8),
    As<VantrixBlendDarkenColorMasked8, decltype(BlendDarkenColorMasked8<Sse2>)>(
        kBlend, kVantrixBlendDarkenColorMasked8),
    As<VantrixBlendLightenMasked8, decltype(BlendLightenMasked8<Sse2>)>(
        kBlend, kVantrixBlendLightenMasked8),
    As<VantrixBlendLightenColorMasked8, decltype(BlendLightenColorMasked8<Sse2>)>(
        kBlend, kVantrixBlendLightenColorMasked8),
    As<VantrixBlendMultiplyMasked8, decltype(BlendMultiplyMasked8<Sse2>)>(
        kBlend, kVantrixBlendMultiplyMasked8),
    As<VantrixBlendMultiply8, decltype(BlendMultiply8<Sse2>)>(kBlend, kVantrixBlendMultiply8),
    As<VantrixBlendScreenColorMasked8, decltype(BlendScreenColorMasked8<Sse2>)>(
        kBlend, kVantrixBlendScreenColorMasked8),
    As<VantrixBlendScreen8, decltype(BlendScreen8<Sse2>)>(kBlend, kVantrixBlendScreen8),
    As<VantrixBlendLighten8, decltype(BlendLighten8<Sse2>)>(kBlend, kVantrixBlendLighten8),
    As<VantrixBlendDarken8, decltype(BlendDarken8<Sse2>)>(kBlend, kVantrixBlendDarken8),
    As<VantrixBlendThresholdMasked8, decltype(BlendThresholdMasked8<Sse2>)>(
        kBlend, kVantrixBlendThresholdMasked8),
    As<VantrixBlendColorThresholdMasked8, decltype(BlendColorThresholdMasked8<Sse2>)>(
        kBlend, kVantrixBlendColorThresholdMasked8),
    As<VantrixBlendOverlayMasked8, decltype(BlendOverlayMasked8<Sse2>)>(
        kBlend, kVantrixBlendOverlayMasked8),
    As<VantrixBlendOverlayColorMasked8, decltype(BlendOverlayColorMasked8<Sse2>)>(
        kBlend, kVantrixBlendOverlayColorMasked8),
    As<VantrixBlendOverlay8, decltype(BlendOverlay8<Sse2>)>(kBlend, kVantrixBlendOverlay8),
    As<VantrixBlendHardLightMasked8, decltype(BlendHardLightMasked8<Sse2>)>(
        kBlend, kVantrixBlendHardLightMasked8),
    As<VantrixBlendHardLightColorMasked8, decltype(BlendHardLightColorMasked8<Sse2>)>(
        kBlend, kVantrixBlendHardLightColorMasked8),
    As<VantrixBlendHardLight8, decltype(BlendHardLight8<Sse2>)>(kBlend, kVantrixBlendHardLight8),
    As<VantrixBlendMultiplyOpacity8, decltype(BlendMultiplyOpacity8<Sse2>)>(
        kBlend, kVantrixBlendMultiplyOpacity8),
    As<VantrixBlendScreenOpacity8, decltype(BlendScreenOpacity8<Sse2>)>(
        kBlend, kVantrixBlendScreenOpacity8),
    As<VantrixBlendOverlayOpacity8, decltype(BlendOverlayOpacity8<Sse2>)>(
        kBlend, kVantrixBlendOverlayOpacity8),
    As<VantrixBlendHardLightOpacity8, decltype(BlendHardLightOpacity8<Sse2>)>(
        kBlend, kVantrixBlendHardLightOpacity8),
    As<VantrixBlendBurnPlanes8, decltype(BlendBurnPlanes8<Sse2>)>(kBlend, kVantrixBlendBurnPlanes8),
    As<VantrixBlendMultiplyPlanes8, decltype(BlendMultiplyPlanes8<Sse2>)>(
        kBlend, kVantrixBlendMultiplyPlanes8),
    As<VantrixBlendInvertMultiplyPlanes8, decltype(BlendInvertMultiplyPlanes8<Sse2>)>(
        kBlend, kVantrixBlendInvertMultiplyPlanes8),
    As<VantrixBlendScreenShare8, decltype(BlendScreenShare8<Sse2>)>(kBlend,
                                                                    kVantrixBlendScreenShare8),
    As<VantrixBlendMultiplyPlanesInvert8, decltype(BlendMultiplyPlanesInvert8<Sse2>)>(
        kBlend, kVantrixBlendMultiplyPlanesInvert8),
    As<VantrixBlendColorWhereZero8, decltype(BlendColorWhereZero8<Sse2>)>(
        kBlend, kVantrixBlendColorWhereZero8),
    As<VantrixExpand8To16, decltype(Expand8To16<Sse2>)>(kConvert, kVantrixExpand8To16),
    As<VantrixRescaleWords, decltype(RescaleWords<Sse2>)>(kConvert, kVantrixRescaleWords),
    As<VantrixFilterLocalDeviation8, decltype(FilterLocalDeviation8<Sse2>)>(
        kFilter, kVantrixFilterLocalDeviation8),
    As<VantrixFilterConvolveVertical8, decltype(FilterConvolveVertical8<Sse2>)>(
        kFilter, kVantrixFilterConvolveVertical8),
    As<VantrixFilterBlockSAD128, decltype(FilterBlockSAD128<Sse2>)>(kFilter,
                                                                    kVantrixFilterBlockSAD128),
    As<VantrixFilterBlockSignedSAD128, decltype(FilterBlockSignedSAD128<Sse2>)>(
        kFilter, kVantrixFilterBlockSignedSAD128),
    As<VantrixFilterFloatBlock8, decltype(FilterFloatBlock8<Sse2>)>(kFilter,
                                                                    kVantrixFilterFloatBlock8),
    As<VantrixFilterFloatBlock12, decltype(FilterFloatBlock12<Sse2>)>(kFilter,
                                                                      kVantrixFilterFloatBlock12),
    As<VantrixFilterFloatBlock16, decltype(FilterFloatBlock16<Sse2>)>(kFilter,
                                                                      kVantrixFilterFloatBlock16),
    As<VantrixFilterFloatBlock20, decltype(FilterFloatBlock20<Sse2>)>(kFilter,
                                                                      kVantrixFilterFloatBlock20),
    As<VantrixCopyBytes, decltype(CopyBytes<Sse2>)>(kMemory, kVantrixCopyBytes),
    As<VantrixCopyRect, decltype(CopyRect<CopyBytes<Sse2>>)>(kMemory, kVantrixCopyRect),
    As<VantrixFillBytes, decltype(FillBytes<Sse2>)>(kMemory, kVantrixFillBytes),
    As<VantrixFillRect, decltype(FillRect<FillBytes<Sse2>>)>(kMemory, kVantrixFillRect),
    As<VantrixBytesAllEqual, decltype(BytesAllEqual<Sse2>)>(kMemory, kVantrixBytesAllEqual),
    As<VantrixRectAllEqual, decltype(RectAllEqual<BytesAllEqual<Sse2>>)>(kMemory,
                                                                         kVantrixRectAllEqual),
    As<VantrixFillWords, decltype(FillWords<Sse2>)>(kMemory, kVantrixFillWords),
    As<VantrixFillWordRect, decltype(FillWordRect<FillWords<Sse2>>)>(kMemory, kVantrixFillWordRect),
    As<VantrixBoxAverageRows8, decltype(BoxAverageRows8<Sse2>)>(kResample, kVantrixBoxAverageRows8),
    As<VantrixFilterResampleHorizontal8, decltype(FilterResampleHorizontal8<Sse2>)>(
        kResample, kVantrixFilterResampleHorizontal8),
    As<VantrixFilterResampleVertical8, decltype(FilterResampleVertical8<Sse2>)>(
        kResample, kVantrixFilterResampleVertical8),
    As<VantrixResampleRowsStepped8, decltype(ResampleRowsStepped8)>(kResample,
                                                                    kVantrixResampleRowsStepped8),
    As<VantrixFilterResampleHorizontal16, decltype(FilterResampleHorizontal16<Sse2>)>(
        kResample, kVantrixFilterResampleHorizontal16),
    As<VantrixSampleAtPositions1D8, decltype(SampleAtPositions1D8<Sse2>)>(
        kResample, kVantrixSampleAtPositions1D8),
    As<VantrixSampleAtPositions2D8, decltype(SampleAtPositions2D8<Sse2>)>(
        kResample, kVantrixSampleAtPositions2D8),
    As<VantrixBoxAverageArea8, decltype(BoxAverageArea8<Sse2>)>(kResample, kVantrixBoxAverageArea8),
    As<VantrixFilterResampleHorizontal32F, decltype(FilterResampleHorizontal32F<Sse2>)>(
        kResample, kVantrixFilterResampleHorizontal32F),
    As<VantrixFilterResampleVertical32F, decltype(FilterResampleVertical32F<Sse2>)>(
        kResample, kVantrixFilterResampleVertical32F),
    As<VantrixSelectSpreadMark8, decltype(SelectSpreadMark8<Sse2>)>(kSelect,
                                                                    kVantrixSelectSpreadMark8),
    As<VantrixSelectClassify8, decltype(SelectClassify8<Sse2>)>(kSelect, kVantrixSelectClassify8),
    As<VantrixSelectPropagate8, decltype(SelectPropagate8<Sse2>)>(kSelect,
                                                                  kVantrixSelectPropagate8),
    As<VantrixSelectPropagate16, decltype(SelectPropagate16<Sse2>)>(kSelect,
                                                                    kVantrixSelectPropagate16),
    As<VantrixSelectClassify16, decltype(SelectClassify16<Sse2>)>(kSelect,
                                                                  kVantrixSelectClassify16),
    As<VantrixApplyFillArrayOperation, decltype(ApplyFillArrayOperation<Sse2>)>(
        kPath, kVantrixApplyFillArrayOperation),
    As<VantrixNoiseBufferHook, decltype(NoiseBufferHook)>(kCore, kVantrixNoiseBufferHook),
};

// Returns the first served slot that the header does not
// state, or states differently; -1 if there is none.
template <size_t kCount>
constexpr int FirstWrong(SuiteIndex suite, const Slot (&slots)[kCount]) {
  for (const Slot& slot : slots) {
    bool isRight = !slot.IsServed();
    for (const Stated& stated : kStated)
      isRight |= stated.suite == suite && stated.slot == slot.index && stated.agrees;
    if (!isRight) return slot.index;
  }
  return -1;
}
static_assert(FirstWrong(kBlend, kBlendSlots) == -1);
static_assert(FirstWrong(kConvert, kConvertSlots) == -1);
static_assert(FirstWrong(kCore, kCoreSlots) == -1);
static_assert(FirstWrong(kFilter, kFilterSlots) == -1);
static_assert(FirstWrong(kMemory, kMemorySlots) == -1);
static_assert(FirstWrong(kPaint, kPaintSlots) == -1);
static_assert(FirstWrong(kResample, kResampleSlots) == -1);
static_assert(FirstWrong(kSelect, kSelectSlots) == -1);
static_assert(FirstWrong(kPath, kPathSlots) == -1);

// Compares values of unrelated enumerations.
constexpr bool Equal(auto stated, auto own) {
  return static_cast<int64_t>(stated) == static_cast<int64_t>(own);
}

static_assert(kAgree<VantrixPluginMain, PluginMainRoutine>);
static_assert(kAgree<VantrixHostPoll, HostPoll> && Equal(kVantrixHostPoll, kHostPoll));
static_assert(kAgree<VantrixNoiseBufferHook, NoiseBufferRoutine> &&
              Equal(kVantrixNoiseBufferHook, kNoiseBuffer));
static_assert(kAgree<VantrixHostCapabilityQuery, HostCapabilityQuery> &&
              Equal(kVantrixHostCapabilityQuery, kHostCapabilityQuery));
static_assert(kAgree<VantrixHostAssert, HostAssert> && Equal(kVantrixHostAssert, kHostAssert));

// Structures: the same sizes, with the same fields at the same places.
template <class A, class B>
constexpr bool kSameSize = sizeof(A) == sizeof(B) && alignof(A) == alignof(B);
static_assert(kSameSize<VantrixSuiteRecord, SuiteRecord> &&
              offsetof(VantrixSuiteRecord, suiteCode) == offsetof(SuiteRecord, suiteCode) &&
              offsetof(VantrixSuiteRecord, suiteVersion) == offsetof(SuiteRecord, suiteVersion) &&
              offsetof(VantrixSuiteRecord, suiteCount) == offsetof(SuiteRecord, suiteCount) &&
              offsetof(VantrixSuiteRecord, routines) == offsetof(SuiteRecord, routines));
static_assert(kSameSize<VantrixParameterBlock, SuiteParameterBlock> &&
              offsetof(VantrixParameterBlock, recordCount) ==
                  offsetof(SuiteParameterBlock, recordCount));
static_assert(kSameSize<VantrixConvolutionKernel, ConvolutionKernel> &&
              offsetof(VantrixConvolutionKernel, radius) == offsetof(ConvolutionKernel, radius) &&
              offsetof(VantrixConvolutionKernel, weights) == offsetof(ConvolutionKernel, weights));
static_assert(kSameSize<VantrixFillArray, FillArray> &&
              offsetof(VantrixFillArray, boundLeft) == offsetof(FillArray, boundLeft) &&
              offsetof(VantrixFillArray, firstRow) == offsetof(FillArray, firstRow) &&
              offsetof(VantrixFillArray, boundRight) == offsetof(FillArray, boundRight) &&
              offsetof(VantrixFillArray, endRow) == offsetof(FillArray, endRow) &&
              offsetof(VantrixFillArray, hostWord) == offsetof(FillArray, hostWord) &&
              offsetof(VantrixFillArray, rowStride) == offsetof(FillArray, rowStride) &&
              offsetof(VantrixFillArray, hostWords) == offsetof(FillArray, hostWords));

// Numbers.
constexpr SuiteFormat kStatedFormats[kVantrixSuites] = {
    {kVantrixBlend, kVantrixBlendVersion, kVantrixBlendLeastCount, kVantrixBlendEntries},
    {kVantrixConvert, kVantrixConvertVersion, kVantrixConvertLeastCount, kVantrixConvertEntries},
    {kVantrixCore, kVantrixCoreVersion, kVantrixCoreLeastCount, kVantrixCoreEntries},
    {kVantrixDisplay, kVantrixDisplayVersion, kVantrixDisplayLeastCount, kVantrixDisplayEntries},
    {kVantrixFilter, kVantrixFilterVersion, kVantrixFilterLeastCount, kVantrixFilterEntries},
    {kVantrixMemory, kVantrixMemoryVersion, kVantrixMemoryLeastCount, kVantrixMemoryEntries},
    {kVantrixPaint, kVantrixPaintVersion, kVantrixPaintLeastCount, kVantrixPaintEntries},
    {kVantrixResample, kVantrixResampleVersion, kVantrixResampleLeastCount,
     kVantrixResampleEntries},
    {kVantrixSelect, kVantrixSelectVersion, kVantrixSelectLeastCount, kVantrixSelectEntries},
    {kVantrixPath, kVantrixPathVersion, kVantrixPathLeastCount, kVantrixPathEntries},
};
static_assert(std::ranges::equal(kStatedFormats, kSuiteFormats, [](auto stated, auto own) {
  return stated.code == own.code && stated.version == own.version &&
         stated.minimumCount == own.minimumCount && stated.savedEntries == own.savedEntries;
}));
static_assert(Equal(kVantrixHostSignature, kHostSignature) &&
              Equal(kVantrixPluginKind, kPluginKind) && Equal(kVantrixPathDebug, Code("pdbg")) &&
              Equal(kVantrixPathGuardValue, Code("pdgv")));
static_assert(Equal(kVantrixAbout, kAbout) && Equal(kVantrixStartUp, kStartUp) &&
              Equal(kVantrixShutDown, kShutDown));
static_assert(Equal(kVantrixSuiteMissing, kSuiteMissing) &&
              Equal(kVantrixUnknownSelector, kUnknownSelector));
static_assert(Equal(kVantrixMaskEmpty, MaskClass::kEmpty) &&
              Equal(kVantrixMaskBelowHalf, MaskClass::kBelowHalf) &&
              Equal(kVantrixMaskMixed, MaskClass::kMixed) &&
              Equal(kVantrixMaskFromHalf, MaskClass::kFromHalf) &&
              Equal(kVantrixMaskFull, MaskClass::kFull));
static_assert(Equal(kVantrixEntryCount, kEntryCount) &&
              Equal(kVantrixPendingCount, kPendingCount) &&
              Equal(kVantrixFirstEntry, kFirstEntry) && Equal(kVantrixUpward, kUpward));
static_assert(Equal(kVantrixUnion, kUnion) && Equal(kVantrixSubtract, kSubtract) &&
              Equal(kVantrixIntersect, kIntersect) && Equal(kVantrixExclusiveOr, kExclusiveOr));

std::string TextOf(const char* name) {
  std::ifstream file(std::string(VANTRIX_SOURCE_DIR "/") + name);
  std::stringstream text;
  text << file.rdbuf();
  return std::regex_replace(text.str(), std::regex("\\s+"), " ");
}

// Returns a name of the list of arguments as the header spells it: `source stride` is sourceStride.
std::string Spelled(const std::string& argument) {
  if (argument == "colour") return "color";
  if (argument == "fill array") return "array";
  std::string name;
  bool isStart = false;
  for (const char letter : argument) {
    if (letter == ' ' || letter == '-') {
      isStart = true;
      continue;
    }
    name += isStart ? static_cast<char>(std::toupper(letter)) : letter;
    isStart = false;
  }
  return name;
}

// Types do not show two strides in the wrong order, so the names in the header must be those of the
// page of slots, in order. The two arguments that a host sees again are named by place.
TEST(HostHeaderTest, NamesEachServedSlotItsNumberAndItsArguments) {
  const std::string header = TextOf("include/vantrix.h");
  size_t served = 0;
  std::set<std::string> seen;
  for (const host::SuiteEntry& suite : host::Catalog()) {
    for (const Slot& slot : suite.slots) {
      if (!slot.IsServed() || !seen.insert(slot.name).second) continue;
      ++served;
      const std::string name = std::string("Vantrix") + slot.name;
      EXPECT_TRUE(std::regex_search(
          header, std::regex("\\bk" + name + " = " + std::to_string(slot.index) + "\\b")))
          << name << " " << slot.index;
      std::smatch found;
      ASSERT_TRUE(
          std::regex_search(header, found, std::regex("typedef \\w+ " + name + "\\(([^)]*)\\)")))
          << name;
      std::string stated, expected;
      const std::string arguments = found[1], list = slot.arguments;
      const std::regex last("(\\w+)(,|$)"), each("([^,]+)(, |$)");
      for (std::sregex_iterator i(arguments.begin(), arguments.end(), last), end; i != end; ++i)
        stated += i->str(1) + " ";
      int hosts = 0;
      for (std::sregex_iterator i(list.begin(), list.end(), each), end; i != end; ++i)
        expected +=
            (i->str(1) == "host's" ? hosts++ ? "fifth" : "fourth" : Spelled(i->str(1))) + " ";
      EXPECT_EQ(stated, expected) << name;
    }
  }
  EXPECT_EQ(served, std::size(kStated)) << "the header states a slot that is not served";
}

}  // namespace
}  // namespace vantrix
