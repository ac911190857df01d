#include "host/fill_array.h"

#include <algorithm>

namespace vantrix::host {

constexpr size_t kHeadWords = sizeof(FillArray) / sizeof(uint32_t);

size_t FillArrayWords(int32_t rows, int32_t rowStride, bool isGuarded) {
  const auto stride = static_cast<size_t>(rowStride);
  const auto count = static_cast<size_t>(std::max(rows, 0));
  return kHeadWords + (count + 1) * stride + (isGuarded ? 2 : 0);
}

FillArray* StartFillArray(uint32_t* block, int32_t firstRow, int32_t rows, int32_t rowStride) {
  auto* const array = reinterpret_cast<FillArray*>(block);
  array->firstRow = firstRow;
  array->endRow = firstRow + rows;
  array->rowStride = rowStride;
  return array;
}

uint32_t* RowOf(FillArray* array, int32_t row) {
  return reinterpret_cast<uint32_t*>(array + 1) + intptr_t{row} * array->rowStride;
}

void AddCrossing(FillArray* array, int32_t row, uint32_t position, bool isUpward) {
  uint32_t* const record = RowOf(array, row);
  record[static_cast<uint32_t>(array->rowStride) - ++record[kPendingCount]] =
      position << 1 | (isUpward ? kUpward : 0);
}

void ClearBehindEntries(uint32_t* row, int32_t rowStride) {
  const uint32_t room = static_cast<uint32_t>(rowStride) - kFirstEntry;
  std::fill(row + kFirstEntry + std::min(row[kEntryCount], room), row + rowStride, 0);
}

FillArrayBlock::FillArrayBlock(int32_t firstRow, int32_t rows, int32_t rowStride, uint32_t guard)
    : rows_(rows), rowStride_(rowStride), words_(FillArrayWords(rows, rowStride, guard != 0)) {
  StartFillArray(words_.data(), firstRow, rows, rowStride);
  if (guard != 0) words_.back() = *RowOf(Array(), rows) = guard;
}

std::vector<uint32_t> FillArrayBlock::Spans(int32_t row) const {
  const uint32_t* const record =
      words_.data() + kHeadWords + static_cast<size_t>(row) * static_cast<size_t>(rowStride_);
  return {record + kFirstEntry, record + kFirstEntry + record[kEntryCount]};
}

bool operator==(const FillArrayBlock& a, const FillArrayBlock& b) {
  if (a.rows_ != b.rows_ || a.rowStride_ != b.rowStride_) return false;
  const auto stride = static_cast<size_t>(a.rowStride_);
  for (size_t y = 0; y < static_cast<size_t>(std::max(a.rows_, 0)); ++y) {
    const uint32_t* const rowA = &a.words_[kHeadWords + y * stride];
    const uint32_t* const rowB = &b.words_[kHeadWords + y * stride];
    const size_t settled = rowA[kEntryCount], pending = rowA[kPendingCount];
    if (rowB[kEntryCount] != settled || rowB[kPendingCount] != pending ||
        !std::equal(rowA + kFirstEntry, rowA + kFirstEntry + settled, rowB + kFirstEntry) ||
        !std::equal(rowA + stride - pending, rowA + stride, rowB + stride - pending))
      return false;
  }
  return true;
}

}  // namespace vantrix::host
