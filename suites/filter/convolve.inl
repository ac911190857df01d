// Bodies of convolve.h, for the units that instantiate them.
#pragma once

#include "common/overlap.h"
#include "common/unroll.h"
#include "suites/filter/convolve.h"
#include "suites/filter/window_sums.h"
#include "suites/kernels.h"

namespace vantrix {
namespace {

// Computes kRows output rows at a time, while that many are left, in the blocks of `walk`.
template <int kRows, class Walk, class Window>
VX_INLINE void ConvolveBlocks(WindowPlanes planes, Walk walk, Window window) {
  for (; planes.rows >= kRows; planes = planes.After(kRows))
    walk.ForEach([=](auto place) VX_INLINED { window.template Convolve<kRows>(planes, place); });
}
// A single column is taken as both ends of its row.
template <int kRows, class Window>
VX_INLINE void ConvolveBlocks(WindowPlanes planes, Singly<uint8_t> column, Window window) {
  ConvolveBlocks<kRows>(planes, OnePlace<Ends<Group<uint8_t>, 1>>{{column.count}}, window);
}
template <class Form, int kRows, class Window>
VX_INLINE void ConvolveRows(WindowPlanes planes, Window window) {
  WithTaperedBlocks<Form, uint8_t>(
      planes.columns, [=](auto walk) VX_INLINED { ConvolveBlocks<kRows>(planes, walk, window); });
}

// Calls work with the TapCount, known at compile time for common counts.
template <class Work>
VX_INLINE void WithTaps(intptr_t taps, Work work) {
  WithConstant<3, 7>(static_cast<int32_t>(taps),
                     [=](auto known) VX_INLINED { work(TapCount<known>{taps}); });
}

template <class Form>
VX_INLINE void ConvolveByRows(WindowPlanes planes, intptr_t taps, const uint32_t* weights) {
  const auto convolve = [=](auto count, auto inLanes) VX_INLINED {
    ConvolveRows<Form, kRowsAtOnce>(planes,
                                    RowByRow<decltype(count), decltype(inLanes)>{count, inLanes});
    ConvolveRows<Form, 1>(planes.After(planes.rows / kRowsAtOnce * kRowsAtOnce),
                          RowByRow<TapCount<0>, decltype(inLanes)>{{taps}, inLanes});
  };
  const KernelWeights kernel{weights};
  if (taps > kPreparedTaps) return convolve(TapCount<0>{taps}, kernel);
  Group<uint16_t> groups[kPreparedTaps];
  for (intptr_t k = 0; k < taps; ++k) groups[k] = kernel.In<Group<uint16_t>>(k);
  const PreparedWeights prepared{groups};
  // If the unit takes rows in pairs, most rows are taken there, and known counts gain too little
  // here for the code that they need.
  if constexpr (kShuffles)
    convolve(TapCount<0>{taps}, prepared);
  else
    WithTaps(taps, [=](auto count) VX_INLINED { convolve(count, prepared); });
}

// The form whose build takes rows one by one. A unit that takes
// most rows in pairs has no code for the others if a narrower form has it.
template <class Form>
using RowsForm =
    std::conditional_t<kWidestRegister == 64, Avx2,
                       std::conditional_t<kShuffles && kWidestRegister == 16, Sse2, Form>>;

template <class Form>
VX_INLINE ConvolveRoutine* RowsBuild() {
  return Call<ConvolveRoutine>(FindBuild(FilterKernels::In<RowsForm<Form>>(), 28)());
}

VX_INLINE void ConvolveSingly(WindowPlanes planes, intptr_t taps, const uint32_t* weights) {
  for (; planes.rows > 0; planes = planes.After(1)) {
    for (intptr_t x = 0; x < planes.columns; ++x) {
      uint32_t sum = kRoundingHalf;
      for (intptr_t k = 0; k < taps; ++k)
        sum += planes.top[k * planes.sourceStride + x] * (weights[k] & 0xFFFF);
      planes.destination[x] = static_cast<uint8_t>(sum >> 8);
    }
  }
}

#if defined(__SSSE3__)

// Computes the rows that can be taken kRowsAtOnce at a time, if the weights suit PairByPair.
// Returns how many rows that were.
template <class Form>
VX_INLINE uint32_t ConvolveByPairs(WindowPlanes planes, intptr_t taps, const uint32_t* weights) {
  PairedWeights pairs;
  if (planes.rows < kRowsAtOnce || !PreparePairs(weights, taps, pairs)) return 0;
  const PairedWeights& prepared = pairs;
  WithTaps(taps, [=, &prepared](auto count) VX_INLINED {
    ConvolveRows<Form, kRowsAtOnce>(planes, PairByPair<decltype(count)>{count, prepared});
  });
  return planes.rows / kRowsAtOnce * kRowsAtOnce;
}

#endif

// Takes the planes' numbers as separate arguments, in registers: the caller would store a structure
// in parts, and a load of the whole waits for such stores.
template <class Form>
[[gnu::noinline]] void Convolve(const uint8_t* top, uint8_t* destination, uint32_t rows,
                                intptr_t columns, intptr_t sourceStride, intptr_t destinationStride,
                                intptr_t taps, const ConvolutionKernel* kernel) {
  WindowPlanes planes{top, sourceStride, destination, destinationStride, rows, columns};
  const uint32_t* const weights = kernel->weights;
  if constexpr (Form::kBytes == 1) {
    ConvolveSingly(planes, taps, weights);
  } else {
#if defined(__SSSE3__)
    planes = planes.After(ConvolveByPairs<Form>(planes, taps, weights));
#endif
    if (planes.rows == 0) return;
    if constexpr (std::is_same_v<RowsForm<Form>, Form>)
      ConvolveByRows<Form>(planes, taps, weights);
    else
      RowsBuild<Form>()(planes.top + taps / 2 * sourceStride, planes.destination, planes.rows,
                        static_cast<int32_t>(columns), static_cast<int32_t>(sourceStride),
                        static_cast<int32_t>(destinationStride), kernel);
  }
}

// For planes that overlap: takes one chunk of columns after another. Each row of a chunk is
// computed whole before it is stored.
constexpr intptr_t kChunk = 4096;
template <class Form>
void ConvolveRowByRow(WindowPlanes planes, intptr_t taps, const ConvolutionKernel* kernel) {
  uint8_t formed[kChunk];
  for (intptr_t x = 0; x < planes.columns; x += kChunk) {
    const intptr_t columns = planes.columns - x < kChunk ? planes.columns - x : kChunk;
    for (uint32_t y = 0; y < planes.rows; ++y) {
      const WindowPlanes row = planes.After(y);
      Convolve<Form>(row.top + x, formed, 1, columns, row.sourceStride, 0, taps, kernel);
      __builtin_memcpy(row.destination + x, formed, static_cast<size_t>(columns));
    }
  }
}

}  // namespace

template <class Form>
void FilterConvolveVertical8(const uint8_t* source, uint8_t* destination, uint32_t rows,
                             int32_t columns, int32_t sourceStride, int32_t destinationStride,
                             const ConvolutionKernel* kernel) {
  if (rows == 0 || columns < 1) return;
  if constexpr (!std::is_same_v<RowsForm<Form>, Form>)
    if (rows < kRowsAtOnce)
      return RowsBuild<Form>()(source, destination, rows, columns, sourceStride, destinationStride,
                               kernel);
  const intptr_t radius = kernel->radius;
  const intptr_t taps = radius < 0 ? 0 : 2 * radius + 1;
  const WindowPlanes planes{taps == 0 ? source : source - radius * sourceStride,
                            sourceStride,
                            destination,
                            destinationStride,
                            rows,
                            columns};
  const PlaneArea target{destination, destinationStride, rows, columns};
  if (target.RowsShareBytes() ||
      Overlap({planes.top, sourceStride, rows + int64_t{taps} - (taps > 0), columns}, target))
    ConvolveRowByRow<Form>(planes, taps, kernel);
  else
    Convolve<Form>(planes.top, destination, rows, columns, sourceStride, destinationStride, taps,
                   kernel);
}

}  // namespace vantrix
