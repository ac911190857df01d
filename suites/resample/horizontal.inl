// Bodies of horizontal.h, for the units that instantiate it.
#pragma once

#include "common/blocks.h"
#include "plugin/suites.h"
#include "suites/kernels.h"
#include "suites/resample/horizontal.h"
#include "suites/resample/horizontal_one_by_one.inl"
#include "suites/resample/set_rules.h"

namespace vantrix {

// A stretch of columns is planned once for this many rows: enough that planning is
// little, few enough that their samples stay in the cache for the next stretch.
inline constexpr uint32_t kRowsAPlan = 128;
inline constexpr int32_t kPlanWords = 8192;
// So many rows are worked on at once, as the registers of a plan are loaded once for them: as
// many as their sums find registers.
template <class Sample>
inline constexpr int kRowsAtOnce = sizeof(Sample) == 1 ? 2 : 4;

constexpr int32_t UnitsOf(int32_t taps, int32_t unitTaps) {
  return (taps + unitTaps - 1) / unitTaps;
}

// The rows of one call. S is a register of sums, a lane for each column of a set; a block is
// as many sets as make a register of output samples.
template <class Sample, class S>
struct HorizontalPass {
  static constexpr int32_t kSize = sizeof(Sample);
  static constexpr int32_t kColumns = kLaneCount<S>;  // of a set
  static constexpr int32_t kSets = 4 / kSize;         // of a block
  static constexpr int32_t kBlock = kSets * kColumns;
  static constexpr int kRows = kRowsAtOnce<Sample>;
  template <class Access>
  using Rule = SetRule<Sample, Access, S>;
  template <class Access>
  using SumOf = typename Rule<Access>::Sum;
  template <class T>
  struct OfRows {
    T of[kRows];
  };
  // Blocks from one to before another, and loose sets behind the last of a row.
  struct Stretch {
    int32_t first, end, looseSets;
  };

  const uint8_t* source;  // where the span starts in the first row
  uint8_t* destination;
  intptr_t sourceStride, destinationStride;
  int32_t width;        // at least a set,
  int32_t outputWidth;  // of which so many columns are stored
  Taps taps;
  Span span;

  // How much of a plan a set is; in words, but for units. kTaps is the tap count, or 0 for any.
  template <class Access, int kTaps = 0>
  VX_INLINE int32_t Units() const {
    return UnitsOf(kTaps > 0 ? kTaps : taps.count, Rule<Access>::kTaps);
  }
  template <class Access>
  static constexpr int32_t kStartAt = kColumns * Access::kRegisters;
  template <class Access>
  static constexpr int32_t kUnitWords = kColumns * Rule<Access>::kWeightRegisters;
  template <class Access>
  static constexpr int32_t kUnitsAt = kStartAt<Access> + kColumns * Rule<Access>::kStartRegisters;
  template <class Access, int kTaps = 0>
  VX_INLINE int32_t SetWords() const {
    return kUnitsAt<Access> + kUnitWords<Access> * Units<Access, kTaps>();
  }

  template <class Access>
  VX_INLINE int32_t UnitBytes() const {
    return Rule<Access>::kUnitBytes * Units<Access>();
  }
  template <class Access>
  VX_INLINE bool SpanHoldsUnits() const {
    return span.bytes >= UnitBytes<Access>() && span.bytes <= INT32_MAX;
  }

  // A row is blocks, and behind them loose sets where another block would be mostly what the
  // one before is. The last block and the last set reach back.
  VX_INLINE int32_t LooseSets() const {
    const int32_t sets = (width % kBlock + kColumns - 1) / kColumns;
    return outputWidth < kColumns ? 1 : width < kBlock || sets < kSets ? sets : 0;
  }
  VX_INLINE int32_t BlockCount() const {
    const int32_t loose = LooseSets();
    return loose == 0 ? (width + kBlock - 1) / kBlock : (width - 1) / kBlock;
  }
  VX_INLINE intptr_t BlockAt(int32_t block) const {
    const intptr_t x = intptr_t{block} * kBlock;
    return x < width - kBlock ? x : width - kBlock;
  }
  VX_INLINE intptr_t LooseSetAt(int32_t set) const {
    const intptr_t x = intptr_t{BlockCount()} * kBlock + set * kColumns;
    return x < width - kColumns ? x : width - kColumns;
  }

  template <class Access>
  VX_INLINE bool PlanSet(uint32_t* words, intptr_t x) const {
    using AccessRule = Rule<Access>;
    const int32_t latest = static_cast<int32_t>(span.bytes) - UnitBytes<Access>();
    const S offsets = Load<S>(taps.offsets + x) - static_cast<uint32_t>(span.lowest);
    const auto starts = As<Ints<S>>(offsets * uint32_t{kSize});
    const Ints<S> early = (starts > latest) & (starts - latest);
    if (!Access::template Plan<AccessRule::kUnitBytes, S>(words, starts - early, latest,
                                                          Units<Access>()))
      return false;
    uint32_t bases[kColumns];
    for (int c = 0; c < kColumns; ++c)
      bases[c] = static_cast<uint32_t>(taps.Base(static_cast<int32_t>(x) + c)) * 2;
    for (int32_t k = 0; k < taps.count; k += 4)
      AccessRule::Plan(words + kStartAt<Access>, k, Units<Access>(),
                       GatherWeights<S>(taps, bases, early / kSize, k));
    return true;
  }

  // False where the access does not serve one of the sets.
  template <class Access>
  VX_INLINE bool PlanColumns(uint32_t* words, Stretch stretch) const {
    if (!SpanHoldsUnits<Access>()) return false;
    const int32_t inBlocks = (stretch.end - stretch.first) * kSets;
    for (int32_t set = 0; set < inBlocks + stretch.looseSets; ++set, words += SetWords<Access>()) {
      const intptr_t x = set < inBlocks
                             ? BlockAt(stretch.first + set / kSets) + set % kSets * kColumns
                             : LooseSetAt(set - inBlocks);
      if (!PlanSet<Access>(words, x)) return false;
    }
    return true;
  }

  template <class Access, int kTaps>
  VX_INLINE OfRows<SumOf<Access>> WeighSet(OfRows<const uint8_t*> from,
                                           const uint32_t* words) const {
    using AccessRule = Rule<Access>;
    OfRows<SumOf<Access>> sums;
    Repeat<kRows>([&](int r)
                      VX_INLINED { sums.of[r] = AccessRule::Start(words + kStartAt<Access>); });
    const uint32_t* weights = words + kUnitsAt<Access>;
    const int32_t units = Units<Access, kTaps>();
    int32_t unit = 0;
    const auto add = [&]<int kCount>(std::integral_constant<int, kCount>) VX_INLINED {
      Repeat<kRows>([&](int r) VX_INLINED {
        const auto fetched = Access::template Fetch<S, AccessRule::kUnitBytes, kCount>(
            from.of[r], words, unit, units);
        Repeat<kCount>([&](int i) VX_INLINED {
          sums.of[r] =
              AccessRule::Add(sums.of[r], fetched.units[i], weights + kUnitWords<Access> * i);
        });
      });
      unit += kCount;
      weights += kUnitWords<Access> * kCount;
    };
    if constexpr (kTaps > 0)
      Repeat<UnitsOf(kTaps, AccessRule::kTaps) / 4>(
          [&](int) VX_INLINED { add(std::integral_constant<int, 4>{}); });
    else
      for (int32_t fours = units / 4; fours > 0; --fours) add(std::integral_constant<int, 4>{});
    if (units & 2) add(std::integral_constant<int, 2>{});
    if (units & 1) add(std::integral_constant<int, 1>{});
    return sums;
  }

  // What comes of kCount sets that follow one another, of a block or a loose one, is given to
  // store(row, samples).
  template <class Access, int kTaps, int kCount, class Write>
  VX_INLINE void WeighSets(OfRows<const uint8_t*> from, const uint32_t* words, Write write) const {
    OfRows<SumOf<Access>> sums[kCount];
    Repeat<kCount>([&](int s) VX_INLINED {
      sums[s] = WeighSet<Access, kTaps>(from, words + SetWords<Access, kTaps>() * s);
    });
    Repeat<kRows>([&](int r) VX_INLINED {
      SumOf<Access> ofRow[kSets];
      Repeat<kSets>([&](int s) VX_INLINED { ofRow[s] = sums[s % kCount].of[r]; });
      write(r, Rule<Access>::Finish(ofRow));
    });
  }

  template <class Access, int kTaps>
  VX_INLINE void WeighRows(const uint32_t* plan, uint32_t row, uint32_t endRow,
                           Stretch stretch) const {
    const int32_t setWords = SetWords<Access, kTaps>();
    for (; row<endRow; row += endRow - row> kRows ? kRows : endRow - row) {
      OfRows<const uint8_t*> from;
      OfRows<uint8_t*> to;
      for (int r = 0; r < kRows; ++r) {
        const uint32_t y = row + r < endRow ? row + r : endRow - 1;
        from.of[r] = source + intptr_t{y} * sourceStride;
        to.of[r] = destination + intptr_t{y} * destinationStride;
      }
      const uint32_t* words = plan;
      for (int32_t block = stretch.first; block < stretch.end; ++block, words += kSets * setWords)
        WeighSets<Access, kTaps, kSets>(from, words, [&](int r, Bytes<S> samples) VX_INLINED {
          Store(to.of[r] + BlockAt(block) * kSize, samples);
        });
      for (int32_t set = 0; set < stretch.looseSets; ++set, words += setWords)
        WeighSets<Access, kTaps, 1>(from, words, [&](int r, Bytes<S> samples) VX_INLINED {
          if (kColumns == 4 && outputWidth < kColumns)
            StoreEnds<2 * kSize>(reinterpret_cast<Sample*>(to.of[r]), outputWidth, samples);
          else
            StoreFirst<kColumns * kSize>(to.of[r] + LooseSetAt(set) * kSize, samples);
        });
    }
  }

  // How many blocks the plan holds, beside the sets of their own.
  template <class... Accesses>
  VX_INLINE int32_t PlanBlocks() const {
    int32_t words = 0;
    ((words = SetWords<Accesses>() > words ? SetWords<Accesses>() : words), ...);
    return kPlanWords / (words * kSets) - 1;
  }

  // The accesses are tried in their order; the last serves every set. Known tap counts take
  // much code: those are left out that few calls would meet.
  template <class... Accesses>
  VX_INLINE void ResampleRows(uint32_t* plan, uint32_t rows) const {
    const int32_t blocks = BlockCount(), mostBlocks = PlanBlocks<Accesses...>();
    for (uint32_t row = 0, endRow; row < rows; row = endRow) {
      endRow = rows - row > kRowsAPlan ? row + kRowsAPlan : rows;
      Stretch stretch{0, 0, 0};
      do {
        const bool isLast = blocks - stretch.first <= mostBlocks;
        stretch.end = isLast ? blocks : stretch.first + mostBlocks;
        stretch.looseSets = isLast ? LooseSets() : 0;
        const auto resample = [&]<class Access>(Access*) VX_INLINED {
          if (!PlanColumns<Access>(plan, stretch)) return false;
          const auto weigh = [&]<int kTaps>(std::integral_constant<int, kTaps>) VX_INLINED {
            WeighRows<Access, kTaps>(plan, row, endRow, stretch);
          };
          if constexpr (!std::is_same_v<Access, ByGather> || sizeof(S) == 16)
            WithTapCount(taps.count, weigh);
          else
            weigh(std::integral_constant<int, 0>{});
          return true;
        };
        (void)(resample(static_cast<Accesses*>(nullptr)) || ...);
        stretch.first = stretch.end;
      } while (stretch.end < blocks);
    }
  }
};

// The lists of two or three columns, made those of a set: the first two and the last two.
struct EndLists {
  int32_t offsets[4];
  uint8_t phases[4];

  VX_INLINE void Fill(Taps* taps, int32_t width) {
    for (int32_t x = 0; x < 4; ++x) {
      const int32_t item = x < 2 ? x : width - 4 + x;
      offsets[x] = taps->offsets[item];
      phases[x] = taps->phases[item];
    }
    taps->offsets = offsets;
    taps->phases = phases;
  }
};

// In sets of S: `width` is at least one, but for the narrowest.
template <class Sample, class S, class Form, class... Accesses>
void FilterHorizontalInSets(const Sample* source, Sample* destination, uint32_t rows, int32_t width,
                            const int32_t* offsets, const uint8_t* phases, int32_t sourceStride,
                            int32_t destinationStride, int32_t tapCount, const int16_t* weights) {
  constexpr int32_t kColumns = kLaneCount<S>;
  Taps taps{offsets, phases, weights, static_cast<int16_t>(tapCount)};
  const Span span = SpanOf<Sample>(taps, width);
  EndLists ends;
  if (kColumns == 4 && width < kColumns) ends.Fill(&taps, width);

  const HorizontalPass<Sample, S> pass{reinterpret_cast<const uint8_t*>(source) + span.first,
                                       reinterpret_cast<uint8_t*>(destination),
                                       sourceStride,
                                       destinationStride,
                                       width < kColumns ? kColumns : width,
                                       width,
                                       taps,
                                       span};
  if (pass.template PlanBlocks<Accesses...>() < 1 || !pass.template SpanHoldsUnits<ByGather>())
    return FilterHorizontalSingly<Sample, Form>(source, destination, rows, width, offsets, phases,
                                                sourceStride, destinationStride, tapCount, weights);
  alignas(64) uint32_t plan[kPlanWords];
  pass.template ResampleRows<Accesses...>(plan, rows);
}

// What the accesses of a set are, the quickest first: use.operator()<Access...>().
template <class Sample, class S, class Use>
VX_INLINE void WithAccesses(Use use) {
  constexpr int kUnit = sizeof(Sample) == 1 ? 2 : 4;
  using Own = ByWindow<GroupWindow<S, kUnit, false>>;
  if constexpr (!kShuffles)
    use.template operator()<ByGather>();
  else if constexpr (sizeof(S) == 16)
    use.template operator()<Own, ByGather>();
  else if constexpr (sizeof(Sample) == 4 && sizeof(S) == 64 && kLooksUp<S>)
    use.template operator()<ByWindow<FloatWindow<S, 1>>, ByWindow<FloatWindow<S, 2>>, ByGather>();
  else if constexpr (sizeof(Sample) == 4 && kLooksUp<S>)
    use.template operator()<ByWindow<FloatWindow<S, 1>>, Own, ByGather>();
  else if constexpr (kLooksUp<Bytes<S>>)
    use.template operator()<ByWindow<ByteWindow<S, kUnit>>, Own, ByGather>();
  else
    use.template operator()<ByWindow<GroupWindow<S, kUnit, true>>, Own, ByGather>();
}

// From so many columns on a row is taken in sets of S. Sources of fewer are mostly narrower
// than windows of 64 bytes. Measured.
template <class S>
inline constexpr int32_t kFewestInSets = sizeof(S) == 64 ? 64 : kLaneCount<S>;

// The form whose build takes rows that are too narrow for a wide form's sets: one that the
// unit's instructions include.
using NarrowerForm = std::conditional_t<kWidestRegister == 64, Avx2, Ssse3>;
template <class Sample>
inline constexpr uint16_t kHorizontalSlot = sizeof(Sample) == 1   ? 5
                                            : sizeof(Sample) == 2 ? 13
                                                                  : 26;

// In sets of the form, where a row is as wide.
template <class Sample, class Form, class Filter>
VX_INLINE void WithSets(int32_t width, Filter filter) {
  using S = Register<uint32_t, Form>;
  if constexpr (sizeof(S) > 16)
    if (width < kFewestInSets<S>)
      return filter(Call<FilterHorizontal<Sample>>(
          FindBuild(ResampleKernels::In<NarrowerForm>(), kHorizontalSlot<Sample>)()));
  WithAccesses<Sample, S>([=]<class... Accesses>() VX_INLINED {
    filter(FilterHorizontalInSets<Sample, S, Form, Accesses...>);
  });
}

template <class Sample, class Form>
void FilterResampleHorizontal(const Sample* source, Sample* destination, uint32_t rows,
                              int32_t width, const int32_t* offsets, const uint8_t* phases,
                              int32_t sourceStride, int32_t destinationStride, int32_t tapCount,
                              const int16_t* weights) {
  if (rows == 0 || width < 1) return;
  const auto filter = [=](auto* routine) VX_INLINED {
    routine(source, destination, rows, width, offsets, phases, sourceStride, destinationStride,
            tapCount, weights);
  };
  if constexpr (Form::kBytes > 1) {
    if (width >= 2 && static_cast<int16_t>(tapCount) >= 2)
      return WithSets<Sample, Form>(width, filter);
  }
  filter(FilterHorizontalSingly<Sample, Form>);
}

}  // namespace vantrix
