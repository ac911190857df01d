// Body of sort.h, for the units that instantiate it.
#pragma once

#include "common/forms.h"
#include "suites/path/sort.h"
#include "suites/path/sort_registers.h"

namespace vantrix {

// Up to how many words are sorted by a network of single words, by one of registers, and in merged
// runs. More are sorted byte by byte. Measured.
struct SortLimits {
  size_t singly, inRegisters, merged;
};
template <class Form>
inline constexpr SortLimits kSortLimits{16, 16, 127};
template <>
inline constexpr SortLimits kSortLimits<Sse2>{16, 32, 127};
template <>
inline constexpr SortLimits kSortLimits<Avx2>{12, 128, 256};

template <class Form>
VX_INLINE void SortRun(uint32_t* words, size_t count) {
  constexpr SortLimits kLimits = kSortLimits<Form>;
  if (kLimits.singly == kLimits.inRegisters || count <= kLimits.singly)
    SortByNetwork(words, count);
  else if constexpr (kLimits.singly < kLimits.inRegisters)
    SortInRegisters<Form, kLimits.singly, kLimits.inRegisters>(words, count);
}

// Merges two sorted runs. The second follows the first, and is as long or one longer. The lower
// half of the result is merged from their starts, the upper half from their ends, so that no run
// ends before its half does.
VX_INLINE void MergeRuns(const uint32_t* runs, size_t first, size_t count, uint32_t* to) {
  const uint32_t *a = runs, *b = runs + first;
  const uint32_t *lastA = b - 1, *lastB = runs + count - 1;
  uint32_t* last = to + count - 1;
  for (size_t i = count / 2; i > 0; --i) {
    const bool fromA = *a <= *b;
    *to++ = fromA ? *a : *b;
    a += fromA;
    b += !fromA;
    const bool fromLastA = *lastA > *lastB;
    *last-- = fromLastA ? *lastA : *lastB;
    lastA -= fromLastA;
    lastB -= !fromLastA;
  }
  if (count % 2 != 0) *to = a <= lastA ? *a : *b;
}

// Sorts runs of nearly equal length, then merges them two by two.
template <class Form>
void SortByMerging(uint32_t* words, size_t count, uint32_t* scratch) {
  uint32_t level = 0;
  while (((count - 1) >> level) >= kSortLimits<Form>.inRegisters) ++level;
  const auto startOf = [&](size_t run) { return run * count >> level; };
  for (size_t run = 0; run < size_t{1} << level; ++run)
    SortRun<Form>(words + startOf(run), startOf(run + 1) - startOf(run));
  uint32_t *from = words, *to = scratch;
  for (; level > 0; --level) {
    for (size_t run = 0; run < size_t{1} << level; run += 2) {
      const size_t start = startOf(run);
      MergeRuns(from + start, startOf(run + 1) - start, startOf(run + 2) - start, to + start);
    }
    uint32_t* const merged = to;
    to = from;
    from = merged;
  }
  if (from != words) __builtin_memcpy(words, from, count * sizeof *words);
}

template <class Form>
void SortWords(uint32_t* words, size_t count, uint32_t* scratch) {
  if (count <= kSortLimits<Form>.inRegisters)
    SortRun<Form>(words, count);
  else if (count <= kSortLimits<Form>.merged)
    SortByMerging<Form>(words, count, scratch);
  else
    SortByBytes(words, count, scratch);
}

}  // namespace vantrix
