// The area average of box.h, for the units that instantiate it.
#pragma once

#include "suites/resample/average.h"
#include "suites/resample/box.h"
#include "suites/resample/computed_row.h"

namespace vantrix {

struct Tiling {
  int32_t width, height;
  intptr_t stride;
  Average average;
};

// Averages one block.
VX_INLINE uint8_t AverageOne(const uint8_t* block, const Tiling& blocks) {
  uint32_t sum = 0;
  for (int32_t j = 0; j < blocks.height; ++j)
    for (int32_t i = 0; i < blocks.width; ++i) sum += block[j * blocks.stride + i];
  return blocks.average.Of(sum);
}

// Computes an output row one sample at a time.
VX_INLINE void AverageSingly(const uint8_t* source, uint8_t* destination, int32_t columns,
                             const Tiling& blocks) {
  for (int32_t x = 0; x < columns; ++x)
    destination[x] = AverageOne(source + intptr_t{x} * blocks.width, blocks);
}

// An operand: the averages of blocks two samples wide, of
// at most 128 rows, or of kHeight rows if that is not 0.
template <int kHeight>
struct AveragedPairs {
  const uint8_t* source;
  Tiling blocks;

  // Averages of the pairs of samples that read(row) loads from each row of a block.
  template <class V, class Read>
  VX_INLINE U16<V> Averages(const uint8_t* first, Read read) const {
    return blocks.average.OfCount<2 * kHeight>(
        SumPairs<V, kHeight>(first, blocks.stride, blocks.height, read));
  }
  template <class V>
  VX_INLINE U16<V> Averages(intptr_t x) const {
    return Averages<V>(source + 2 * x, [](const uint8_t* row) VX_INLINED { return Load<V>(row); });
  }

  template <class V>
  VX_INLINE V At(Block<V> block) const {
    if constexpr (kIsOneSample<V>)
      return V{AverageOne(source + 2 * block.x, blocks)};
    else
      return NarrowInMemoryOrder(Averages<V>(block.x), Averages<V>(block.x + kLaneCount<V> / 2));
  }
  template <class V, int kBytes>
  VX_INLINE V At(Ends<V, kBytes> place) const {
    if constexpr (kBytes == 8) {
      return Narrow(Averages<V>(0), Averages<V>(place.count - 8));
    } else {
      const auto ends = Averages<V>(source, [=](const uint8_t* row) VX_INLINED {
        return LoadEnds<V, 2 * kBytes>(row, 2 * place.count);
      });
      return Narrow(ends, ends);
    }
  }
  VX_INLINE void NextRow() { source += blocks.height * blocks.stride; }
};

template <int kHeight>
VX_INLINE bool OverlapsInPart(const AveragedPairs<kHeight>& operand, Target to, int32_t rows,
                              int32_t columns) {
  const Tiling& blocks = operand.blocks;
  return Overlap(
      {operand.source, blocks.stride, int64_t{rows} * blocks.height, 2 * int64_t{columns}},
      {to.row, to.stride, rows, columns});
}

// Other blocks have their columns summed first, in stretches for which there is room. A stretch has
// at least kFewestColumns columns, as WithWholeBlocks needs them.
constexpr int32_t kSumColumns = 2048;
constexpr int32_t kFewestColumns = 16;
constexpr int32_t kMostBlockWidth = kSumColumns - kFewestColumns;

// Stores the sums of `columns` columns, at least kFewestColumns, or of pairs of columns.
template <class Form, bool kInPairs, int kHeight>
VX_INLINE void StoreColumnSums(const uint8_t* source, uint16_t* sums, int32_t columns,
                               const Tiling& blocks) {
  WithWholeBlocks<uint8_t, Form::kBytes>(0, columns, [=](auto walk) VX_INLINED {
    walk.ForEach([=]<class V>(Block<V> block) VX_INLINED {
      const auto read = [](const uint8_t* row) VX_INLINED { return Load<V>(row); };
      const uint8_t* const from = source + block.x;
      if constexpr (kInPairs) {
        Store(sums + block.x / 2, SumPairs<V, kHeight>(from, blocks.stride, blocks.height, read));
      } else {
        const auto columnSums = SumColumns<V, kHeight>(from, blocks.stride, blocks.height, read);
        const auto ordered = InterleaveInMemoryOrder(columnSums.even, columnSums.odd);
        Store(sums + block.x, ordered.first);
        Store(sums + block.x + kLaneCount<V> / 2, ordered.second);
      }
    });
  });
}

// An operand: the average of each sum, or of each two sums if kGroup is 2, of at most
// Average::kCountIn16Bits samples.
template <int kGroup>
struct AveragedSums {
  const uint16_t* sums;
  Average average;

  // Adds the two sums of a pair in a 32-bit lane, from which Narrow takes 16 bits.
  template <class V>
  VX_INLINE I32<V> OfPairs(const uint16_t* from) const {
    const auto pairs = Load<U32<V>>(from);
    return As<I32<V>>(pairs + (pairs << 16)) >> 16;
  }
  template <class V>
  VX_INLINE U16<V> Averages(intptr_t x) const {
    const uint16_t* const from = sums + kGroup * x;
    if constexpr (kGroup == 1)
      return average.Of(Load<U16<V>>(from));
    else
      return average.Of(
          NarrowInMemoryOrder(OfPairs<V>(from), OfPairs<V>(from + kLaneCount<V> / 2)));
  }

  template <class V>
  VX_INLINE V At(Block<V> block) const {
    if constexpr (kIsOneSample<V>) {
      uint32_t sum = 0;
      Repeat<kGroup>([&](int i) VX_INLINED { sum += sums[kGroup * block.x + i]; });
      return V{average.Of(sum)};
    } else {
      return NarrowInMemoryOrder(Averages<V>(block.x), Averages<V>(block.x + kLaneCount<V> / 2));
    }
  }
  template <class V, int kBytes>
  VX_INLINE V At(Ends<V, kBytes> place) const {
    const intptr_t count = place.count;
    if constexpr (kBytes == 8) {
      return Narrow(Averages<V>(0), Averages<V>(count - 8));
    } else if constexpr (kGroup == 1) {
      const auto ends = average.Of(LoadEnds<U16<V>, 2 * kBytes>(sums, count));
      return Narrow(ends, ends);
    } else {
      const auto ends = average.Of(Narrow(OfPairs<V>(sums), OfPairs<V>(sums + 2 * count - 8)));
      return Narrow(ends, ends);
    }
  }
};

// Adds up each `group` neighbouring sums, or kGroup of them if that is not 0. In place: a new sum
// is never further on than the sums that it is made of.
template <int kGroup>
VX_INLINE void AddGroups(uint16_t* sums, int32_t count, int32_t group) {
  if constexpr (kGroup > 0) group = kGroup;
  const uint16_t* from = sums;
  for (int32_t x = 0; x < count; ++x, from += group) {
    uint32_t sum = 0;
    const auto add = [&](int32_t i) VX_INLINED { sum += from[i]; };
    if constexpr (kGroup > 0)
      Repeat<kGroup>(add);
    else
      for (int32_t i = 0; i < group; ++i) add(i);
    sums[x] = static_cast<uint16_t>(sum);
  }
}
// Averages each `group` neighbouring sums, if their sum is too large for 16 bits.
VX_INLINE void AverageGroups(const uint16_t* sums, uint8_t* destination, int32_t count,
                             int32_t group, Average average) {
  for (int32_t x = 0; x < count; ++x) {
    uint32_t sum = 0;
    for (int32_t i = 0; i < group; ++i) sum += *sums++;
    destination[x] = average.Of(sum);
  }
}

// Computes an output row in stretches. No stretch has fewer than kFewestColumns columns.
template <class Form>
VX_INLINE void AverageByColumns(const uint8_t* source, uint8_t* destination, int32_t columns,
                                const Tiling& blocks) {
  alignas(Register<uint16_t, Form>) uint16_t sums[kSumColumns];
  const bool inPairs = blocks.width % 2 == 0 && blocks.height <= Average::kCountIn16Bits / 2;
  const int32_t group = inPairs ? blocks.width / 2 : blocks.width;
  for (int32_t x = 0, count; x < columns; x += count) {
    const bool isLast = int64_t{columns - x} * blocks.width <= kSumColumns;
    count = isLast ? columns - x : kMostBlockWidth / blocks.width;
    const uint8_t* const from = source + intptr_t{x} * blocks.width;
    WithConstant<2, 3, 4>(
        blocks.height, [&]<int kHeight>(std::integral_constant<int, kHeight>) VX_INLINED {
          if (inPairs)
            StoreColumnSums<Form, true, kHeight>(from, sums, count * blocks.width, blocks);
          else
            StoreColumnSums<Form, false, kHeight>(from, sums, count * blocks.width, blocks);
        });
    uint8_t* const row = destination + x;
    if (blocks.width * blocks.height > Average::kCountIn16Bits) {
      AverageGroups(sums, row, count, group, blocks.average);
    } else if (group == 2) {
      // Blocks are four columns wide, so kFewestColumns are at least four blocks.
      WithBlocks<Form, uint8_t, 4>(count, [&](auto walk) VX_INLINED {
        WriteRow(walk, row, AveragedSums<2>{sums, blocks.average});
      });
    } else {
      if (group > 1)
        WithConstant<3>(group, [&]<int kGroup>(std::integral_constant<int, kGroup>)
                                   VX_INLINED { AddGroups<kGroup>(sums, count, group); });
      WithBlocks<Form, uint8_t>(count, [&](auto walk) VX_INLINED {
        WriteRow(walk, row, AveragedSums<1>{sums, blocks.average});
      });
    }
  }
}

template <class Form>
void BoxAverageArea8(const uint8_t* source, uint8_t* destination, int32_t outputRows,
                     int32_t outputColumns, int32_t blockWidth, int32_t blockHeight,
                     int32_t sourceStride, int32_t destinationStride) {
  if (outputRows < 1 || outputColumns < 1 || blockWidth < 1 || blockHeight < 1) return;
  const Tiling blocks{blockWidth, blockHeight, sourceStride,
                      Average(int64_t{blockWidth} * blockHeight)};
  if (Form::kBytes > 1 && blockWidth == 2 && blockHeight <= Average::kCountIn16Bits / 2)
    return WithConstant<2>(
        blockHeight, [&]<int kHeight>(std::integral_constant<int, kHeight>) VX_INLINED {
          ApplyToRows<Form>(outputRows, outputColumns, Output{{destination, destinationStride}},
                            AsItIs{}, AveragedPairs<kHeight>{source, blocks});
        });
  const bool byColumns = Form::kBytes > 1 && blockWidth <= kMostBlockWidth &&
                         blockHeight <= Average::kCountIn16Bits &&
                         int64_t{outputColumns} * blockWidth >= kFewestColumns &&
                         !Overlap({source, sourceStride, int64_t{outputRows} * blockHeight,
                                   int64_t{outputColumns} * blockWidth},
                                  {destination, destinationStride, outputRows, outputColumns});
  for (; outputRows > 0; --outputRows) {
    if (!byColumns)
      AverageSingly(source, destination, outputColumns, blocks);
    else if constexpr (Form::kBytes > 1)
      AverageByColumns<Form>(source, destination, outputColumns, blocks);
    source += blockHeight * intptr_t{sourceStride};
    destination += destinationStride;
  }
}

}  // namespace vantrix
