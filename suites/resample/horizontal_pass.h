// The rows of one call of the horizontal pass.
#pragma once

#include "common/far.h"
#include "common/overlap.h"
#include "suites/resample/set_rules.h"

namespace vantrix {

// A chunk of columns that is shorter than a row is planned once for this many rows: enough to
// make planning cheap, few enough for their samples to stay in the cache until the next chunk.
inline constexpr uint32_t kRowsAPlan = 128;
// 32 KiB, of the host's stack.
inline constexpr int32_t kPlanWords = 8192;
// Rows that are taken together: the registers of a plan are loaded once for all of them. As many as
// there are registers for their sums.
template <class Sample, class S>
inline constexpr int kRowsAtOnce = sizeof(Sample) == 1 && sizeof(S) < 64 ? 2 : 4;
// Of far planes the next rows are prefetched after so many blocks.
inline constexpr int32_t kBlocksAPiece = 4;

VX_INLINE constexpr int32_t UnitsOf(int32_t taps, int32_t unitTaps) {
  return (taps + unitTaps - 1) / unitTaps;
}

// The arguments of a call.
struct HorizontalCall {
  const uint8_t* source;  // where the span starts in the first row
  uint8_t* destination;
  intptr_t sourceStride, destinationStride;
  uint32_t rows;
  int32_t width;
  Taps taps;
  Span span;

  VX_INLINE bool Overlaps(int64_t sampleBytes) const {
    const PlaneArea target{destination, destinationStride, rows, width * sampleBytes};
    return target.RowsShareBytes() || Overlap({source, sourceStride, rows, span.bytes}, target);
  }
};

// S is a register of sums, with a lane for each column of a set. A block is as many sets as make a
// register of output samples.
template <class Sample, class S>
struct HorizontalPass : HorizontalCall {
  static constexpr int32_t kSize = sizeof(Sample);
  static constexpr int32_t kColumns = kLaneCount<S>;  // of a set
  static constexpr int32_t kSets = 4 / kSize;         // of a block
  static constexpr int32_t kBlock = kSets * kColumns;
  static constexpr int kRows = kRowsAtOnce<Sample, S>;
  template <class Access>
  using Rule = SetRule<Sample, Access, S>;
  template <class Access>
  using SumOf = typename Rule<Access>::Sum;
  template <class T>
  struct OfRows {
    T of[kRows];
  };
  // Blocks `first` to `end` (not included), and the loose sets after the last block of a row.
  struct Chunk {
    int32_t first, end, looseSets;
  };

  int32_t outputWidth;  // columns that are stored; `width` is at least a set

  // The size of a set in a plan, in units or in words. kTaps is the tap count, or 0 for any.
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

  // A row consists of blocks, the last of which reaches back; or of blocks and then fewer loose
  // sets than make a block, the last of which reaches back.
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
    const auto starts = As<I32<S>>(offsets * uint32_t{kSize});
    const I32<S> early = (starts > latest) & (starts - latest);
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

  // Returns false if the access does not serve one of the sets.
  template <class Access>
  VX_INLINE bool PlanColumns(uint32_t* words, Chunk chunk) const {
    if (!SpanHoldsUnits<Access>()) return false;
    const int32_t inBlocks = (chunk.end - chunk.first) * kSets;
    for (int32_t set = 0; set < inBlocks + chunk.looseSets; ++set, words += SetWords<Access>()) {
      const intptr_t x = set < inBlocks
                             ? BlockAt(chunk.first + set / kSets) + set % kSets * kColumns
                             : LooseSetAt(set - inBlocks);
      if (!PlanSet<Access>(words, x)) return false;
    }
    return true;
  }

  template <class Access, int kTaps>
  VX_INLINE OfRows<SumOf<Access>> WeighSet(OfRows<const uint8_t*> from,
                                           const uint32_t* words) const {
    using AccessRule = Rule<Access>;
    static_assert(RuleOnSets<AccessRule, S>);
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

  // Calls write(row, samples) with the output samples of
  // kCount consecutive sets: a block or a loose set.
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
  VX_INLINE void WeighRows(const uint32_t* plan, uint32_t row, uint32_t endRow, Chunk chunk) const {
    const int32_t setWords = SetWords<Access, kTaps>();
    const bool isFar = AreFar(rows, span.bytes + width * int64_t{kSize});
    const int32_t blocksAPiece = isFar ? kBlocksAPiece : chunk.end;
    for (; row < endRow; row += (endRow - row > kRows) ? kRows : endRow - row) {
      OfRows<const uint8_t*> from;
      OfRows<uint8_t*> to;
      for (int r = 0; r < kRows; ++r) {
        const uint32_t y = row + r < endRow ? row + r : endRow - 1;
        from.of[r] = source + intptr_t{y} * sourceStride;
        to.of[r] = destination + intptr_t{y} * destinationStride;
      }
      const uint32_t* words = plan;
      for (int32_t block = chunk.first; block < chunk.end;) {
        const int32_t end = chunk.end - block < blocksAPiece ? chunk.end : block + blocksAPiece;
        if (isFar) {
          // The same columns of the rows after these.
          const intptr_t first = words[0], last = words[((end - block) * kSets - 1) * setWords];
          const intptr_t bytes = (BlockAt(end - 1) + kBlock - BlockAt(block)) * kSize;
          PrefetchRows(from.of[0] + kRows * sourceStride + first, sourceStride, kRows,
                       last - first + 1);
          PrefetchRows(to.of[0] + kRows * destinationStride + BlockAt(block) * kSize,
                       destinationStride, kRows, bytes);
        }
        for (; block < end; ++block, words += kSets * setWords)
          WeighSets<Access, kTaps, kSets>(from, words, [&](int r, U8<S> samples) VX_INLINED {
            Store(to.of[r] + BlockAt(block) * kSize, samples);
          });
      }
      for (int32_t set = 0; set < chunk.looseSets; ++set, words += setWords)
        WeighSets<Access, kTaps, 1>(from, words, [&](int r, U8<S> samples) VX_INLINED {
          if (kColumns == 4 && outputWidth < kColumns)
            StoreEnds<2 * kSize>(reinterpret_cast<Sample*>(to.of[r]), outputWidth, samples);
          else
            StoreFirst<kColumns * kSize>(to.of[r] + LooseSetAt(set) * kSize, samples);
        });
    }
  }

  // How many blocks fit in the plan, beside the loose sets.
  template <class... Accesses>
  VX_INLINE int32_t PlanBlocks() const {
    int32_t words = 0;
    ((words = SetWords<Accesses>() > words ? SetWords<Accesses>() : words), ...);
    return kPlanWords / (words * kSets) - 1;
  }

  // Known tap counts need much code, so they are left out where few calls would use them: in wide
  // forms, where columns are gathered; in 64 bytes, where columns of 8 or 16 bits do not fit in the
  // first access's window.
  template <class Access, class First, class...>
  static constexpr bool KnowsTaps() {
    if (sizeof(S) == 16 || std::is_same_v<Access, First>) return true;
    const bool gathers = std::is_same_v<Access, ByGather>;
    return sizeof(S) == 64 ? kSize == 4 && !gathers : kSize == 4 || !gathers;
  }

  // Accesses are tried in their order; the last one serves every set.
  template <AccessTo<S>... Accesses>
  VX_INLINE void ResampleRows(uint32_t* plan) const {
    const int32_t blocks = BlockCount(), mostBlocks = PlanBlocks<Accesses...>();
    const uint32_t mostRows = blocks > mostBlocks ? kRowsAPlan : rows;
    for (uint32_t row = 0, endRow; row < rows; row = endRow) {
      endRow = rows - row > mostRows ? row + mostRows : rows;
      Chunk chunk{0, 0, 0};
      do {
        const bool isLast = blocks - chunk.first <= mostBlocks;
        chunk.end = isLast ? blocks : chunk.first + mostBlocks;
        chunk.looseSets = isLast ? LooseSets() : 0;
        const auto resample = [&]<class Access>(Access*) VX_INLINED {
          if (!PlanColumns<Access>(plan, chunk)) return false;
          const auto weigh = [&]<int kTaps>(std::integral_constant<int, kTaps>)
                                 VX_INLINED { WeighRows<Access, kTaps>(plan, row, endRow, chunk); };
          if constexpr (KnowsTaps<Access, Accesses...>())
            WithTapCount(taps.count, weigh);
          else
            weigh(std::integral_constant<int, 0>{});
          return true;
        };
        (void)(resample(static_cast<Accesses*>(nullptr)) || ...);
        chunk.first = chunk.end;
      } while (chunk.end < blocks);
    }
  }
};

}  // namespace vantrix
