// The area average of box.h, for the units that instantiate it.
#pragma once

#include "suites/resample/average.h"
#include "suites/resample/box.h"
#include "suites/resample/computed_row.h"

namespace vantrix {

struct Boxes {
  int32_t width, height;
  intptr_t stride;
  Average average;
};

// Averages one box.
VX_INLINE uint8_t AverageOne(const uint8_t* box, const Boxes& boxes) {
  uint32_t sum = 0;
  for (int32_t j = 0; j < boxes.height; ++j)
    for (int32_t i = 0; i < boxes.width; ++i) sum += box[j * boxes.stride + i];
  return boxes.average.Of(sum);
}

// Computes an output row one sample at a time.
VX_INLINE void AverageSingly(const uint8_t* source, uint8_t* destination, int32_t columns,
                             const Boxes& boxes) {
  for (int32_t x = 0; x < columns; ++x)
    destination[x] = AverageOne(source + intptr_t{x} * boxes.width, boxes);
}

// An operand: the averages of boxes two samples wide, of
// at most 128 rows, or of kHeight rows if that is not 0.
template <int kHeight>
struct AveragedPairs {
  const uint8_t* source;
  Boxes boxes;

  // Averages of the pairs of samples that read(row) loads from each row of a box.
  template <class V, class Read>
  VX_INLINE U16<V> Averages(const uint8_t* first, Read read) const {
    return boxes.average.OfCount<2 * kHeight>(
        SumPairs<V, kHeight>(first, boxes.stride, boxes.height, read));
  }
  template <class V>
  VX_INLINE U16<V> Averages(intptr_t x) const {
    return Averages<V>(source + 2 * x, [](const uint8_t* row) VX_INLINED { return Load<V>(row); });
  }

  template <class V>
  VX_INLINE V At(Block<V> block) const {
    if constexpr (kIsOneSample<V>)
      return V{AverageOne(source + 2 * block.x, boxes)};
    else
      return NarrowInMemoryOrder(Averages<V>(block.x), Averages<V>(block.x + kLaneCount<V> / 2));
  }
  template <class V, int kBytes>
  VX_INLINE V At(Ends<V, kBytes> place) const {
    if constexpr (kBytes >= 8) {
      return NarrowInMemoryOrder(Averages<V>(0), Averages<V>(place.count - kBytes));
    } else {
      const auto ends = Averages<V>(source, [=](const uint8_t* row) VX_INLINED {
        return LoadEnds<V, 2 * kBytes>(row, 2 * place.count);
      });
      return Narrow(ends, ends);
    }
  }
  VX_INLINE void NextRow() { source += boxes.height * boxes.stride; }
};

template <int kHeight>
VX_INLINE bool OverlapsInPart(const AveragedPairs<kHeight>& operand, Target to, int32_t rows,
                              int32_t columns) {
  const Boxes& boxes = operand.boxes;
  return Overlap({operand.source, boxes.stride, int64_t{rows} * boxes.height, 2 * int64_t{columns}},
                 {to.row, to.stride, rows, columns});
}

// Other boxes have their columns summed first, in chunks for which there is room. A chunk has
// at least kFewestColumns columns, as WithWholeBlocks needs them.
constexpr int32_t kSumColumns = 2048;
constexpr int32_t kFewestColumns = 16;
constexpr int32_t kMostBoxWidth = kSumColumns - kFewestColumns;

// Stores the sums of `columns` columns, at least kFewestColumns, or of pairs of columns.
template <class Form, bool kInPairs, int kHeight>
VX_INLINE void StoreColumnSums(const uint8_t* source, uint16_t* sums, int32_t columns,
                               const Boxes& boxes) {
  WithWholeBlocks<uint8_t, Form::kBytes>(0, columns, [=](auto walk) VX_INLINED {
    walk.ForEach([=]<class V>(Block<V> block) VX_INLINED {
      const auto read = [](const uint8_t* row) VX_INLINED { return Load<V>(row); };
      const uint8_t* const from = source + block.x;
      if constexpr (kInPairs) {
        Store(sums + block.x / 2, SumPairs<V, kHeight>(from, boxes.stride, boxes.height, read));
      } else {
        const auto columnSums = SumColumns<V, kHeight>(from, boxes.stride, boxes.height, read);
        const auto ordered = InterleaveInMemoryOrder(columnSums.even, columnSums.odd);
        Store(sums + block.x, ordered.first);
        Store(sums + block.x + kLaneCount<V> / 2, ordered.second);
      }
    });
  });
}

// An operand: the average of each sum, or of each two sums if kPerBox is 2, of at most
// Average::kCountIn16Bits samples.
template <int kPerBox>
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
    const uint16_t* const from = sums + kPerBox * x;
    if constexpr (kPerBox == 1)
      return average.Of(Load<U16<V>>(from));
    else
      return average.Of(
          NarrowInMemoryOrder(OfPairs<V>(from), OfPairs<V>(from + kLaneCount<V> / 2)));
  }

  template <class V>
  VX_INLINE V At(Block<V> block) const {
    if constexpr (kIsOneSample<V>) {
      uint32_t sum = 0;
      Repeat<kPerBox>([&](int i) VX_INLINED { sum += sums[kPerBox * block.x + i]; });
      return V{average.Of(sum)};
    } else {
      return NarrowInMemoryOrder(Averages<V>(block.x), Averages<V>(block.x + kLaneCount<V> / 2));
    }
  }
  template <class V, int kBytes>
  VX_INLINE V At(Ends<V, kBytes> place) const {
    const intptr_t count = place.count;
    if constexpr (kBytes >= 8) {
      return NarrowInMemoryOrder(Averages<V>(0), Averages<V>(count - kBytes));
    } else if constexpr (kPerBox == 1) {
      const auto ends = average.Of(LoadEnds<U16<V>, 2 * kBytes>(sums, count));
      return Narrow(ends, ends);
    } else {
      const auto ends = average.Of(Narrow(OfPairs<V>(sums), OfPairs<V>(sums + 2 * count - 8)));
      return Narrow(ends, ends);
    }
  }
};

// Adds up each `perBox` neighbouring sums, or kPerBox of them if that is not 0. In place: a new sum
// is never further on than the sums that it is made of.
template <int kPerBox>
VX_INLINE void AddNeighbours(uint16_t* sums, int32_t count, int32_t perBox) {
  if constexpr (kPerBox > 0) perBox = kPerBox;
  const uint16_t* from = sums;
  for (int32_t x = 0; x < count; ++x, from += perBox) {
    uint32_t sum = 0;
    const auto add = [&](int32_t i) VX_INLINED { sum += from[i]; };
    if constexpr (kPerBox > 0)
      Repeat<kPerBox>(add);
    else
      for (int32_t i = 0; i < perBox; ++i) add(i);
    sums[x] = static_cast<uint16_t>(sum);
  }
}
// Averages each `perBox` neighbouring sums, if their sum is too large for 16 bits.
VX_INLINE void AverageNeighbours(const uint16_t* sums, uint8_t* destination, int32_t count,
                                 int32_t perBox, Average average) {
  for (int32_t x = 0; x < count; ++x) {
    uint32_t sum = 0;
    for (int32_t i = 0; i < perBox; ++i) sum += *sums++;
    destination[x] = average.Of(sum);
  }
}

// Computes an output row in chunks. No chunk has fewer than kFewestColumns columns.
template <class Form>
VX_INLINE void AverageByColumns(const uint8_t* source, uint8_t* destination, int32_t columns,
                                const Boxes& boxes) {
  alignas(Register<uint16_t, Form>) uint16_t sums[kSumColumns];
  const bool inPairs = boxes.width % 2 == 0 && boxes.height <= Average::kCountIn16Bits / 2;
  const int32_t perBox = inPairs ? boxes.width / 2 : boxes.width;
  for (int32_t x = 0, count; x < columns; x += count) {
    const bool isLast = int64_t{columns - x} * boxes.width <= kSumColumns;
    count = isLast ? columns - x : kMostBoxWidth / boxes.width;
    const uint8_t* const from = source + intptr_t{x} * boxes.width;
    WithConstant<2, 3, 4>(
        boxes.height, [&]<int kHeight>(std::integral_constant<int, kHeight>) VX_INLINED {
          if (inPairs)
            StoreColumnSums<Form, true, kHeight>(from, sums, count * boxes.width, boxes);
          else
            StoreColumnSums<Form, false, kHeight>(from, sums, count * boxes.width, boxes);
        });
    uint8_t* const row = destination + x;
    if (boxes.width * boxes.height > Average::kCountIn16Bits) {
      AverageNeighbours(sums, row, count, perBox, boxes.average);
    } else if (perBox == 2) {
      // Boxes are four columns wide, so kFewestColumns are at least four boxes.
      WithBlocks<Form, uint8_t, 4>(count, [&](auto walk) VX_INLINED {
        WriteRow(walk, row, AveragedSums<2>{sums, boxes.average});
      });
    } else {
      if (perBox > 1)
        WithConstant<3>(perBox, [&]<int kPerBox>(std::integral_constant<int, kPerBox>)
                                    VX_INLINED { AddNeighbours<kPerBox>(sums, count, perBox); });
      WithBlocks<Form, uint8_t>(count, [&](auto walk) VX_INLINED {
        WriteRow(walk, row, AveragedSums<1>{sums, boxes.average});
      });
    }
  }
}

template <class Form>
void BoxAverageArea8(const uint8_t* source, uint8_t* destination, int32_t outputRows,
                     int32_t outputColumns, int32_t blockWidth, int32_t blockHeight,
                     int32_t sourceStride, int32_t destinationStride) {
  if (outputRows < 1 || outputColumns < 1 || blockWidth < 1 || blockHeight < 1) return;
  const Boxes boxes{blockWidth, blockHeight, sourceStride,
                    Average(int64_t{blockWidth} * blockHeight)};
  if (Form::kBytes > 1 && blockWidth == 2 && blockHeight <= Average::kCountIn16Bits / 2)
    return WithConstant<2>(
        blockHeight, [&]<int kHeight>(std::integral_constant<int, kHeight>) VX_INLINED {
          ApplyToRows<Form>(outputRows, outputColumns, Output{{destination, destinationStride}},
                            AsItIs{}, AveragedPairs<kHeight>{source, boxes});
        });
  const bool byColumns = Form::kBytes > 1 && blockWidth <= kMostBoxWidth &&
                         blockHeight <= Average::kCountIn16Bits &&
                         int64_t{outputColumns} * blockWidth >= kFewestColumns &&
                         !Overlap({source, sourceStride, int64_t{outputRows} * blockHeight,
                                   int64_t{outputColumns} * blockWidth},
                                  {destination, destinationStride, outputRows, outputColumns});
  for (; outputRows > 0; --outputRows) {
    if (!byColumns)
      AverageSingly(source, destination, outputColumns, boxes);
    else if constexpr (Form::kBytes > 1)
      AverageByColumns<Form>(source, destination, outputColumns, boxes);
    source += blockHeight * intptr_t{sourceStride};
    destination += destinationStride;
  }
}

}  // namespace vantrix
