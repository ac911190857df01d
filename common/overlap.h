// Whether operands share memory with the target, so that the order of loads and stores shows.
//
// Any overlap has a defined result. Unless a kernel's header says otherwise,
// it is that of taking rows in order, and the samples of a row one at a
// time, from the first to the last. A register loads samples before earlier
// ones are stored, so planes that overlap are taken one sample at a time.
#pragma once

#include "common/operands.h"

namespace vantrix {

VX_INLINE int64_t AddressOf(const void* at) {
  return static_cast<int64_t>(reinterpret_cast<uintptr_t>(at));
}
// Widened first: the magnitude of the lowest number needs one bit more.
template <class T>
VX_LANE int64_t Magnitude(T stride) {
  return stride < 0 ? -int64_t{stride} : stride;
}
// Bytes from the first row to the last. Wraps for more rows than memory holds.
VX_INLINE uint64_t ReachOf(int64_t rows, int64_t stride) {
  return static_cast<uint64_t>(rows - 1) * static_cast<uint64_t>(stride);
}

// Each row of an operand, of `bytes` bytes, is paired with a row of the target, of `targetBytes`
// bytes. The first one starts `apart` bytes after the target's first. In each next row the distance
// grows by `drift` bytes.
struct RowPairs {
  int64_t apart, drift, bytes, targetBytes;
};

// Whether the columns of one plane never meet the columns of the other, however many rows there
// are: so it is with tiles of one picture, even if one of them skips rows.
bool ColumnsAreApart(const void* a, intptr_t aStride, int64_t aBytes, const void* b,
                     intptr_t bStride, int64_t bBytes);

// The exact answers, for when the quick comparisons below are not enough.
bool SomeRowsOverlap(int64_t apart, int64_t drift, int64_t bytes, int64_t targetBytes,
                     int32_t rows);
bool AreasOverlap(const void* a, intptr_t aStride, int64_t aRows, int64_t aBytes, const void* b,
                  intptr_t bStride, int64_t bRows, int64_t bBytes);

// For rules that take one row at a time: whether rows of the same number overlap. Rows of equal
// length may coincide, sample for sample.
VX_INLINE bool OverlapsInPart(RowPairs pairs, int32_t rows) {
  const uint64_t first = static_cast<uint64_t>(pairs.apart),
                 last = first + ReachOf(rows, pairs.drift),
                 bytes = static_cast<uint64_t>(pairs.bytes),
                 targetBytes = static_cast<uint64_t>(pairs.targetBytes);
  // Mostly the first and the last row lie on the same side:
  // one comparison of two signs for each side.
  const auto behind = static_cast<int64_t>((first - targetBytes) | (last - targetBytes));
  const auto ahead = static_cast<int64_t>((0 - first - bytes) | (0 - last - bytes));
  if (__builtin_expect(behind >= 0 || ahead >= 0, 1)) return false;
  // By value: a structure would be stored before the comparisons.
  return SomeRowsOverlap(pairs.apart, pairs.drift, pairs.bytes, pairs.targetBytes, rows);
}
template <class T>
VX_INLINE bool OverlapsInPart(PlaneOf<T> plane, TargetOf<T> to, int32_t rows, int32_t columns) {
  const int64_t bytes = int64_t{columns} * int64_t{sizeof(T)};
  return OverlapsInPart(
      {AddressOf(plane.row) - AddressOf(to.row), int64_t{plane.stride} - to.stride, bytes, bytes},
      rows);
}
template <class To>
VX_INLINE bool OverlapsInPart(Constant, To, int32_t, int32_t) {
  return false;
}

// Whether the two planes of a target overlap each other.
template <class To>
VX_INLINE bool OverlapsItself(To, int32_t, int32_t) {
  return false;
}
template <class T>
VX_INLINE bool OverlapsItself(TwoTargetsOf<T> to, int32_t rows, int32_t columns) {
  return OverlapsInPart(PlaneOf<T>{to.second.row, to.second.stride}, to.first, rows, columns);
}

// Where the rows of a plane lie in memory: at least one row of at least one byte.
struct PlaneArea {
  const void* first;
  intptr_t stride;
  int64_t rows, bytes;

  VX_INLINE bool RowsShareBytes() const { return rows > 1 && Magnitude(stride) < bytes; }
  // The address of the lowest byte, and the one after the highest.
  VX_INLINE uint64_t Low() const { return Address() + (stride < 0 ? ReachOf(rows, stride) : 0); }
  VX_INLINE uint64_t End() const {
    return Address() + (stride < 0 ? 0 : ReachOf(rows, stride)) + static_cast<uint64_t>(bytes);
  }

 private:
  VX_INLINE uint64_t Address() const { return reinterpret_cast<uintptr_t>(first); }
};

// For kernels that read several rows for one, or write several at once: whether the planes share
// any byte. Two tiles of one picture share none, though their ranges of addresses cross. If strides
// differ, planes whose columns meet count as sharing, whether a byte is shared or not.
VX_INLINE bool Overlap(PlaneArea a, PlaneArea b) {
  const auto isBehind = [](uint64_t start, uint64_t end)
                            VX_INLINED { return static_cast<int64_t>(start - end) >= 0; };
  if (isBehind(b.Low(), a.End()) || isBehind(a.Low(), b.End())) return false;
  return AreasOverlap(a.first, a.stride, a.rows, a.bytes, b.first, b.stride, b.rows, b.bytes);
}

}  // namespace vantrix
