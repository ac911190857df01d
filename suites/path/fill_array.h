// The fold of pending crossings into a fill array, suite path slot 24, and its checks.
//
// What the host must guarantee: the array starts at a multiple of 4 and is whole, that
// is rowStride is at least 2 and rows (endRow - firstRow), where there are any, guard
// words and calc buffer lie in memory as signatures.h says; a row is shorter than 2 GiB.
// Nothing else need hold: whatever the rows say, nothing outside the block is touched.
#pragma once

#include "suites/path/signatures.h"

namespace vantrix {

// For each row that has pending entries, or for kIntersect for each row:
//   - The pending entries are sorted by position, down before up. By the non-zero rule
//     those stay at which the winding number leaves or reaches 0, by the even-odd rule
//     all. Of equal positions one stays where their number is odd, and none where it is
//     even. These are the boundaries of the new shape, whatever the path's direction.
//   - The row's settled entries become the boundaries of the combined shape, ascending,
//     and none are pending. A position that closes one span and opens another vanishes.
// A row without pending entries keeps its settled ones; kIntersect drops them.
//
// Rows that contradict themselves are folded all the same. A count above rowStride - 2,
// as unsigned numbers, is reported as a warning and taken as the even number at or below
// that. Where the result has more entries, the excess is dropped. Rows below 1: nothing.
//
// Works in the row and the calc buffer; the result moves back by the memory suite's live
// slot 0. Arrays of their own may be folded at the same time.
FillArrayRoutine ApplyFillArrayOperation;

// The same, and everything that looks wrong on the way is reported: unknown operations,
// odd counts, entries that do not fit, what ValidateFillArray finds, and guard words that
// changed. Serves slot 24 where the host debugs its paths.
FillArrayRoutine ApplyFillArrayOperationChecked;

// Reports rows whose pending count is too large or negative, and those whose pending
// entries do not go up as often as down; then calls VerifyPathFillArray where arrays are
// guarded. Rows with odd counts are left to others. A count that reaches before the
// array's start counts the words from there.
void ValidateFillArray(const FillArray* array, const char* sourceFile, int32_t line);

// Reports each of the two guard words that is not PathDebugGuardValue. Of an array whose
// rows are below 1 it takes the words to follow the head.
void VerifyPathFillArray(const FillArray* array, const char* sourceFile, int32_t line);

}  // namespace vantrix
