// Fill arrays, and the argument list of the routine that folds them.
//
// A fill array records where the outlines of a path cross each pixel row. The host's rasteriser
// appends a new path's crossings to the rows; slot 24 folds them into what the rows held before. In
// a fill array a word is 32 bits.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantrix {

// The head of the host's block. What follows it in memory, in words:
//   rows x rowStride   one row record after another, top row first
//   1                  the guard value, only where the host guards its arrays
//   rowStride          the calc buffer: scratch for one row; all but its last two words may be
//                      written
//   1                  the guard value again, only where the host guards its arrays
//
// A row record:
//   0                  how many settled entries it has
//   1                  how many pending entries it has
//   2 ...              the settled entries: ascending positions, where the covered
//                      spans open and close in turn
//   ... rowStride - 1  the pending entries, in any order, against the end of the row;
//                      each is a position, shifted left by 1, and its direction
// A row has room for rowStride - 2 entries.
struct FillArray {
  int32_t boundLeft;
  int32_t firstRow;
  int32_t boundRight;
  int32_t endRow;  // after the last row
  int32_t hostWord;
  int32_t rowStride;  // words from a row to the next
  int32_t hostWords[20];
};
static_assert(sizeof(FillArray) == 104 && offsetof(FillArray, firstRow) == 4 &&
              offsetof(FillArray, endRow) == 12 && offsetof(FillArray, rowStride) == 20);

// Words of a row record, and the direction in a pending
// entry: up adds 1 to the winding number, down subtracts 1.
enum FillRowWord { kEntryCount = 0, kPendingCount = 1, kFirstEntry = 2 };
inline constexpr uint32_t kUpward = 1;

// How the new path is combined with what a row held. Any other code keeps what the row held.
enum FillOperation : uint32_t { kUnion, kSubtract, kIntersect, kExclusiveOr };

// nonZeroWinding: the new path is filled by the non-zero
// rule if this is not 0, else by the even-odd rule.
using FillArrayRoutine = void(FillArray* array, uint32_t operation, uint32_t nonZeroWinding);

}  // namespace vantrix
