// A fill array as the host allocates, fills and reads it.
#pragma once

#include <cstdint>
#include <vector>

#include "suites/path/signatures.h"

namespace vantrix::host {

// How many words the block takes: head, rows, calc buffer and, where arrays are guarded,
// two guard words. Rows below 1 take none.
size_t FillArrayWords(int32_t rows, int32_t rowStride, bool isGuarded);

// Makes a head in the block's first words; the rows follow it in memory. Words that the
// plug-in does not read stay as they are.
FillArray* StartFillArray(uint32_t* block, int32_t firstRow, int32_t rows, int32_t rowStride);

// The record of a row, counted from 0.
uint32_t* RowOf(FillArray* array, int32_t row);

// Appends a pending entry to a row, before those that it has.
void AddCrossing(FillArray* array, int32_t row, uint32_t position, bool isUpward);

// What a routine that folds a row leaves behind its entries is its own affair: makes it 0.
void ClearBehindEntries(uint32_t* row, int32_t rowStride);

// A fill array of its own, with all rows empty.
class FillArrayBlock {
 public:
  FillArrayBlock(int32_t firstRow, int32_t rows, int32_t rowStride, uint32_t guard = 0);

  FillArray* Array() { return reinterpret_cast<FillArray*>(words_.data()); }
  uint32_t* Row(int32_t row) { return RowOf(Array(), row); }
  int32_t RowCount() const { return rows_; }

  // The settled entries of a row.
  std::vector<uint32_t> Spans(int32_t row) const;

  // Whether all rows hold the same settled and pending entries. What else is in a row,
  // or in the calc buffer, is nobody's.
  friend bool operator==(const FillArrayBlock& a, const FillArrayBlock& b);

 private:
  int32_t rows_, rowStride_;
  std::vector<uint32_t> words_;
};

}  // namespace vantrix::host
