// A fill array as the host allocates, fills and reads it.
#pragma once

#include <cstdint>
#include <vector>

#include "suites/path/signatures.h"

namespace vantrix::host {

// Returns the number of words in the block: head, rows, calc buffer and, if arrays are guarded, two
// guard words. A row count below 1 counts as 0.
size_t FillArrayWords(int32_t rows, int32_t rowStride, bool isGuarded);

// Writes a head into the block's first words; the rows follow it in memory. Words that the plug-in
// does not read stay as they are.
FillArray* StartFillArray(uint32_t* block, int32_t firstRow, int32_t rows, int32_t rowStride);

// Returns the record of a row, counted from 0.
uint32_t* RowOf(FillArray* array, int32_t row);

// Adds a pending entry to a row, in front of those that it has.
void AddCrossing(FillArray* array, int32_t row, uint32_t position, bool isUpward);

// Clears a row past the end of its settled entries. What a
// routine that folds the row leaves there does not matter.
void ClearBehindEntries(uint32_t* row, int32_t rowStride);

// A fill array that owns its memory. All rows are empty at first.
class FillArrayBlock {
 public:
  FillArrayBlock(int32_t firstRow, int32_t rows, int32_t rowStride, uint32_t guard = 0);

  FillArray* Array() { return reinterpret_cast<FillArray*>(words_.data()); }
  uint32_t* Row(int32_t row) { return RowOf(Array(), row); }
  int32_t RowCount() const { return rows_; }

  // The settled entries of a row.
  std::vector<uint32_t> Spans(int32_t row) const;

  // Whether all rows hold the same settled and pending entries. The rest of a row and the calc
  // buffer are not compared.
  friend bool operator==(const FillArrayBlock& a, const FillArrayBlock& b);

 private:
  int32_t rows_, rowStride_;
  std::vector<uint32_t> words_;
};

}  // namespace vantrix::host
