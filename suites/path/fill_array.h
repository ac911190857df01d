// The fold of pending crossings into a fill array, suite path slot 24, and its checks.
//
// The host must guarantee that the array starts at a multiple of 4; that rowStride is at least 2;
// that the rows (endRow - firstRow, if any), the guard words and the calc buffer are in memory as
// signatures.h says; and that a row is shorter than 2 GiB. Nothing else needs to hold: whatever the
// rows contain, nothing outside the block is touched.
#pragma once

#include "suites/path/signatures.h"

namespace vantrix {

// For each row that has pending entries:
//   - The pending entries are sorted by position, down before up. The non-zero rule keeps those at
//     which the winding number leaves or reaches 0, the even-odd rule keeps all. Of equal positions
//     one is kept if their number is odd, none if it is even. These are the boundaries of the new
//     shape, whatever the path's direction.
//   - The row's settled entries become the boundaries of the combined shape, ascending, and no
//     entries are pending. A position that closes one span and opens another is dropped.
// A row without pending entries keeps its settled ones, except that kIntersect drops them.
//
// Rows that contradict themselves are folded as well. A count above rowStride - 2, as unsigned
// numbers, is reported as a warning and taken as the largest even number that fits. If the result
// has more entries, the excess is dropped. With rows below 1 nothing is done.
//
// Works in the row and the calc buffer; the memory suite's live slot 0 copies the result back.
// Different arrays may be folded at the same time.
template <class Form>
FillArrayRoutine ApplyFillArrayOperation;

// The same, but also reports what looks wrong: unknown operations, rows below 1, odd counts,
// entries that do not fit, what ValidateFillArray finds, and guard words that changed. Serves slot
// 24 if the host debugs its paths. It has one form.
FillArrayRoutine ApplyFillArrayOperationChecked;

// Reports rows whose pending count is too large or negative, and rows whose pending entries do not
// go up as often as down. Then calls VerifyPathFillArray if arrays have guard words. Does not look
// at the entries of rows with odd counts. If a count reaches before the array's start, only the
// words from the start on are counted.
void ValidateFillArray(const FillArray* array, const char* sourceFile, int32_t line);

// Reports each of the two guard words that is not PathDebugGuardValue. If rows are below 1, the
// words are taken to follow the head.
void VerifyPathFillArray(const FillArray* array, const char* sourceFile, int32_t line);

}  // namespace vantrix
