// Body of fill_array.h, for the units that instantiate it.
#pragma once

#include "plugin/base/suites.h"
#include "suites/memory/signatures.h"
#include "suites/path/checks.h"
#include "suites/path/crossings.h"
#include "suites/path/fill_array.h"
#include "suites/path/layout.h"
#include "suites/path/merge.h"
#include "suites/path/sort.inl"

namespace vantrix {

inline constexpr size_t kMostWords = 0xFFFFFFFF;

// A count above a row's capacity is reported, by both
// routines, and taken as the largest even number that fits.
VX_INLINE size_t Bounded(size_t count, uint32_t capacity, const char* message, int32_t line) {
  if (count <= capacity) [[likely]]
    return count;
  ReportPath(message, kPathSourceFile, line, kRowCountWarning);
  return capacity & ~1u;
}

// Folds one row that has pending entries. Some checks always hold after the step before them; they
// are there for whoever changes that step.
template <class Form, FillChecks Checks>
VX_INLINE void FoldRow(uint32_t* row, uint32_t rowStride, uint32_t operation,
                       uint32_t nonZeroWinding, uint32_t* calc, const Checks& checks) {
  const uint32_t capacity = rowStride - 2;
  const size_t pending =
      Bounded(row[kPendingCount], capacity, "WARNING - illegal value for row count", 695);
  checks.Require(pending % 2 == 0, "ApplyFillArrayOperation Odd number of entries. (0)", 712);

  uint32_t* const list = row + rowStride - pending;
  SortWords<Form>(list, pending, calc);
  checks.VerifyGuards(721);
  const Positions positions =
      nonZeroWinding ? ResolveByWinding(list, pending) : ResolveByParity(list, pending);
  checks.Require(positions.count <= kMostWords, "Pointer arithmetic uint32 overflow", 768);
  size_t added = positions.repeat ? CancelEqual(list, positions.count) : positions.count;
  checks.VerifyGuards(795);
  checks.Require(added <= kMostWords, "Pointer arithmetic uint32 overflow", 797);
  checks.Require(added % 2 == 0, "CApplyFillArrayOperation Odd number of entries. (1)", 799);
  added = Bounded(added, capacity, "WARNING - illegal value for new row count", 801);

  const uint32_t covered = kCoveredStates[operation];
  checks.Require((covered & 1) == 0,
                 "CApplyFillArrayOperation Logic is confused about state. -Tavik", 811);
  checks.Require(row[kEntryCount] % 2 == 0, "CApplyFillArrayOperation Odd number of entries. (2)",
                 821);
  const size_t settled =
      Bounded(row[kEntryCount], capacity, "WARNING - illegal value for old row count", 823);

  const Boundaries a{list, added}, b{row + kFirstEntry, settled};
  const uint32_t changes = kCoverageChanges.of[operation];
  size_t result = added + settled <= capacity
                      ? MergeBoundaries<true>(a, b, changes, calc, capacity, checks)
                      : MergeBoundaries<false>(a, b, changes, calc, capacity, checks);
  checks.VerifyGuards(914);
  checks.Require(result <= kMostWords, "Pointer arithmetic uint32 overflow", 918);
  checks.Require(result % 2 == 0, "CApplyFillArrayOperation Odd number of entries. (3)", 920);
  result = Bounded(result, capacity, "WARNING - illegal result value for row count", 922);

  row[kPendingCount] = 0;
  row[kEntryCount] = static_cast<uint32_t>(result);
  Call<CopyBytesRoutine>(memorySuite.live[MemorySlot::kCopyBytes])(
      reinterpret_cast<const uint8_t*>(calc), reinterpret_cast<uint8_t*>(row + kFirstEntry),
      static_cast<int32_t>(result * sizeof *row));
  checks.VerifyGuards(932);
}

template <class Form, FillChecks Checks>
VX_INLINE void Apply(FillArray* array, uint32_t operation, uint32_t nonZeroWinding) {
  const Checks checks{array};
  checks.Require(operation < kKeepSettled,
                 "CApplyFillArrayOperation Unexpected operation code. -Tavik", 671);
  if (operation > kKeepSettled) operation = kKeepSettled;
  checks.Validate(676);
  const int64_t rows = RowCount(*array);
  if (!checks.Require(rows >= 1, "ApplyFillArrayOperation rows <= 0", 680)) return;

  const auto rowStride = static_cast<uint32_t>(array->rowStride);
  uint32_t* const first = FirstRow(array);
  uint32_t* const end = first + rows * rowStride;
  for (uint32_t* row = first; row != end; row += rowStride) {
    if (row[kPendingCount] != 0)
      FoldRow<Form>(row, rowStride, operation, nonZeroWinding, end + checks.GuardWords(), checks);
    else if (operation == kIntersect)
      row[kEntryCount] = 0;
  }
}

template <class Form>
void ApplyFillArrayOperation(FillArray* array, uint32_t operation, uint32_t nonZeroWinding) {
  Apply<Form, NoChecks>(array, operation, nonZeroWinding);
}

}  // namespace vantrix
