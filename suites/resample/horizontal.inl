// Bodies of horizontal.h, for the units that instantiate it.
#pragma once

#include <cstring>

#include "suites/resample/horizontal.h"
#include "suites/resample/horizontal_one_by_one.inl"
#include "suites/resample/quad_rules.h"

namespace vantrix {

// A stretch of columns is planned once for this many rows: enough that planning is
// little, few enough that their samples stay in the cache for the next stretch.
inline constexpr uint32_t kRowsAPlan = 128;
inline constexpr int32_t kPlanWords = 2048;

constexpr int32_t UnitsOf(int32_t taps, int32_t unitTaps) {
  return (taps + unitTaps - 1) / unitTaps;
}

// The rows of one call, in blocks of a register of output samples. kTaps is the tap
// count, or 0 for any.
template <class Sample, int kTaps>
struct HorizontalPass {
  static constexpr int32_t kSize = sizeof(Sample);
  static constexpr int32_t kColumns = 16 / kSize;
  static constexpr int32_t kQuads = kColumns / kQuadColumns;
  template <class Access>
  using Rule = QuadRule<Sample, Access>;

  const uint8_t* source;  // where the span starts in the first row
  uint8_t* destination;
  intptr_t sourceStride, destinationStride;
  int32_t width;        // at least a block,
  int32_t outputWidth;  // of which so many columns are stored
  Taps taps;
  Span span;

  template <class Access>
  VX_INLINE int32_t Units() const {
    return UnitsOf(kTaps > 0 ? kTaps : taps.count, Rule<Access>::kTaps);
  }
  template <class Access>
  VX_INLINE int32_t UnitBytes() const {
    return Rule<Access>::kUnitBytes * Units<Access>();
  }
  template <class Access>
  VX_INLINE bool SpanHoldsUnits() const {
    return span.bytes >= UnitBytes<Access>() && span.bytes <= INT32_MAX;
  }
  // Where a quad's words for the rule are, behind those of the access.
  template <class Access>
  static constexpr int RuleAt() {
    return Access::template kWords<Rule<Access>::kUnitBytes>;
  }
  template <class Access>
  VX_INLINE int32_t QuadWords() const {
    using AccessRule = Rule<Access>;
    return RuleAt<Access>() + AccessRule::kStartWords + AccessRule::kWeightWords * Units<Access>();
  }
  template <class Access>
  VX_INLINE int32_t BlockWords() const {
    return QuadWords<Access>() * kQuads;
  }

  // Where the block of column x is: the last one reaches back.
  VX_INLINE intptr_t Place(intptr_t x) const { return x < width - kColumns ? x : width - kColumns; }

  template <class Access>
  VX_INLINE bool PlanQuad(uint32_t* words, intptr_t x) const {
    using AccessRule = Rule<Access>;
    const int32_t latest = static_cast<int32_t>(span.bytes) - UnitBytes<Access>();
    const auto offsets = Load<Sums4>(taps.offsets + x) - static_cast<uint32_t>(span.lowest);
    const auto starts = As<Ints4>(offsets * uint32_t{kSize});
    const Ints4 early = (starts > latest) & (starts - latest);
    uint32_t bases[kQuadColumns];
    for (int c = 0; c < kQuadColumns; ++c)
      bases[c] = static_cast<uint32_t>(taps.Base(static_cast<int32_t>(x) + c)) * 2;
    for (int32_t k = 0; k < taps.count; k += 4)
      AccessRule::Plan(words + RuleAt<Access>(), k, Units<Access>(),
                       GatherWeights(taps, bases, early / kSize, k));
    return Access::template Plan<AccessRule::kUnitBytes>(words, starts - early, latest,
                                                         Units<Access>());
  }

  // False where the access does not serve one of the quads.
  template <class Access>
  VX_INLINE bool PlanColumns(uint32_t* words, intptr_t x, intptr_t end) const {
    if (!SpanHoldsUnits<Access>()) return false;
    for (; x < end; x += kColumns)
      for (int q = 0; q < kQuads; ++q, words += QuadWords<Access>())
        if (!PlanQuad<Access>(words, Place(x) + kQuadColumns * q)) return false;
    return true;
  }

  template <class Access>
  VX_INLINE auto WeighQuad(const uint8_t* row, const uint32_t* words) const {
    using AccessRule = Rule<Access>;
    const uint32_t* weights = words + RuleAt<Access>() + AccessRule::kStartWords;
    auto sum = AccessRule::Start(words + RuleAt<Access>());
    int32_t unit = 0;
    const auto add = [&]<int kCount>(std::integral_constant<int, kCount>) VX_INLINED {
      const auto fetched = Access::template Fetch<AccessRule::kUnitBytes, kCount>(row, words, unit);
      Repeat<kCount>([&](int i) VX_INLINED {
        sum = AccessRule::Add(sum, fetched.units[i], weights + AccessRule::kWeightWords * i);
      });
      unit += kCount;
      weights += AccessRule::kWeightWords * kCount;
    };
    const int32_t units = Units<Access>();
    if constexpr (kTaps > 0)
      Repeat<UnitsOf(kTaps, AccessRule::kTaps) / 4>(
          [&](int) VX_INLINED { add(std::integral_constant<int, 4>{}); });
    else
      for (int32_t fours = units / 4; fours > 0; --fours) add(std::integral_constant<int, 4>{});
    if (units & 2) add(std::integral_constant<int, 2>{});
    if (units & 1) add(std::integral_constant<int, 1>{});
    return sum;
  }

  template <class Access>
  VX_INLINE Bytes16 WeighBlock(const uint8_t* row, const uint32_t* words) const {
    const auto quad = [&](int q) VX_INLINED {
      return WeighQuad<Access>(row, words + QuadWords<Access>() * q);
    };
    if constexpr (kQuads == 4)
      return Rule<Access>::Finish(quad(0), quad(1), quad(2), quad(3));
    else if constexpr (kQuads == 2)
      return Rule<Access>::Finish(quad(0), quad(1));
    else
      return Rule<Access>::Finish(quad(0));
  }

  template <class Access>
  VX_INLINE void WeighRows(const uint32_t* plan, uint32_t row, uint32_t endRow, intptr_t x,
                           intptr_t end) const {
    alignas(16) uint8_t narrow[16];
    const bool isNarrow = outputWidth < kColumns;
    for (; row < endRow; ++row) {
      const uint8_t* const from = source + intptr_t{row} * sourceStride;
      uint8_t* const to = destination + intptr_t{row} * destinationStride;
      uint8_t* const blocks = isNarrow ? narrow : to;
      const uint32_t* words = plan;
      for (intptr_t at = x; at < end; at += kColumns, words += BlockWords<Access>())
        Store(blocks + Place(at) * kSize, WeighBlock<Access>(from, words));
      if (isNarrow) std::memcpy(to, narrow, static_cast<size_t>(outputWidth) * sizeof(Sample));
    }
  }

  // How many blocks the plan holds.
  template <class... Accesses>
  VX_INLINE int32_t PlanBlocks() const {
    int32_t words = 0;
    ((words = BlockWords<Accesses>() > words ? BlockWords<Accesses>() : words), ...);
    return kPlanWords / words;
  }

  // The accesses are tried in their order; the last serves every quad.
  template <class... Accesses>
  VX_INLINE void ResampleRows(uint32_t* plan, uint32_t rows) const {
    const intptr_t columns = intptr_t{PlanBlocks<Accesses...>()} * kColumns;
    for (uint32_t row = 0, endRow; row < rows; row = endRow) {
      endRow = rows - row > kRowsAPlan ? row + kRowsAPlan : rows;
      for (intptr_t x = 0, end; x < width; x = end) {
        end = width - x > columns ? x + columns : width;
        const auto resample = [&]<class Access>(Access*) VX_INLINED {
          if (!PlanColumns<Access>(plan, x, end)) return false;
          WeighRows<Access>(plan, row, endRow, x, end);
          return true;
        };
        (void)(resample(static_cast<Accesses*>(nullptr)) || ...);
      }
    }
  }
};

// The lists of a width of less than a block, made one by repeating the last column.
struct NarrowLists {
  int32_t offsets[16];
  uint8_t phases[16];

  VX_INLINE void Fill(Taps* taps, int32_t width) {
    for (int32_t x = 0; x < 16; ++x) {
      const int32_t item = x < width ? x : width - 1;
      offsets[x] = taps->offsets[item];
      phases[x] = taps->phases[item];
    }
    taps->offsets = offsets;
    taps->phases = phases;
  }
};

template <class Sample, class Form, class... Accesses>
void FilterHorizontalWide(const Sample* source, Sample* destination, uint32_t rows, int32_t width,
                          const int32_t* offsets, const uint8_t* phases, int32_t sourceStride,
                          int32_t destinationStride, int32_t tapCount, const int16_t* weights) {
  if (rows == 0 || width < 1) return;
  constexpr int32_t kColumns = 16 / sizeof(Sample);
  Taps taps{offsets, phases, weights, static_cast<int16_t>(tapCount)};
  const Span span = SpanOf<Sample>(taps, width);
  NarrowLists narrow;
  if (width < kColumns) narrow.Fill(&taps, width);

  const auto passOf = [&]<int kTaps>(std::integral_constant<int, kTaps>) VX_INLINED {
    return HorizontalPass<Sample, kTaps>{reinterpret_cast<const uint8_t*>(source) + span.first,
                                         reinterpret_cast<uint8_t*>(destination),
                                         sourceStride,
                                         destinationStride,
                                         width < kColumns ? kColumns : width,
                                         width,
                                         taps,
                                         span};
  };
  const auto anyPass = passOf(std::integral_constant<int, 0>{});
  const bool isPlanned = taps.count >= 2 && anyPass.template PlanBlocks<Accesses...>() > 0 &&
                         anyPass.template SpanHoldsUnits<ByGather>();
  if (!isPlanned)
    return FilterHorizontalSingly<Sample, Form>(source, destination, rows, width, offsets, phases,
                                                sourceStride, destinationStride, tapCount, weights);
  alignas(16) uint32_t plan[kPlanWords];
  WithTapCount(taps.count, [&](auto kTaps) VX_INLINED {
    passOf(kTaps).template ResampleRows<Accesses...>(plan, rows);
  });
}

template <class Sample, class Form>
void FilterResampleHorizontal(const Sample* source, Sample* destination, uint32_t rows,
                              int32_t width, const int32_t* offsets, const uint8_t* phases,
                              int32_t sourceStride, int32_t destinationStride, int32_t tapCount,
                              const int16_t* weights) {
  const auto filter = [=](auto* routine) VX_INLINED {
    routine(source, destination, rows, width, offsets, phases, sourceStride, destinationStride,
            tapCount, weights);
  };
  if constexpr (std::is_same_v<Form, Scalar>)
    filter(FilterHorizontalSingly<Sample, Form>);
  else if constexpr (std::is_same_v<Form, Sse2>)
    filter(FilterHorizontalWide<Sample, Form, ByGather>);
  else
    filter(FilterHorizontalWide<Sample, Form, ByWindow, ByGather>);
}

}  // namespace vantrix
