#include "suites/path/sort.h"

#include <cstring>
#include <utility>

#include "common/lane_ops.h"

namespace vantrix {
namespace {

// Up to kNetworkWords words are sorted in registers by a network of comparisons, from kRadixWords
// on byte by byte. Measured.
constexpr size_t kNetworkWords = 16;
constexpr size_t kRadixWords = 160;

VX_INLINE void Order(uint32_t& low, uint32_t& high) {
  const uint32_t a = low, b = high;
  low = a < b ? a : b;
  high = a < b ? b : a;
}

// Batcher's merge exchange for kCount words: the pairs to put in order, one after another.
template <size_t kCount>
struct Network {
  struct Pair {
    uint8_t low, high;
  } pairs[4 * kNetworkWords];
  size_t size = 0;

  constexpr Network() : pairs{} {
    for (size_t run = 1; run < kCount; run *= 2)
      for (size_t apart = run; apart >= 1; apart /= 2)
        for (size_t block = apart % run; block < kCount; block += 2 * apart)
          for (size_t i = block; i < block + apart && i + apart < kCount; ++i)
            if (i / (2 * run) == (i + apart) / (2 * run))
              pairs[size++] = {static_cast<uint8_t>(i), static_cast<uint8_t>(i + apart)};
  }
};

// Folds over constant indices, so that every compiler keeps the words in registers.
template <size_t kCount>
void SortByNetwork([[maybe_unused]] uint32_t* words) {
  static constexpr Network<kCount> kNetwork;
  uint32_t v[kCount + 1];
  [&]<size_t... k>(std::index_sequence<k...>)
      VX_INLINED { ((v[k] = words[k]), ...); }(std::make_index_sequence<kCount>{});
  [&]<size_t... k>(std::index_sequence<k...>) VX_INLINED {
    (Order(v[kNetwork.pairs[k].low], v[kNetwork.pairs[k].high]), ...);
  }(std::make_index_sequence<kNetwork.size>{});
  [&]<size_t... k>(std::index_sequence<k...>)
      VX_INLINED { ((words[k] = v[k]), ...); }(std::make_index_sequence<kCount>{});
}

struct Networks {
  void (*sort[kNetworkWords + 1])(uint32_t* words);
};
constexpr Networks kNetworks = []<size_t... k>(std::index_sequence<k...>) {
  return Networks{{SortByNetwork<k>...}};
}(std::make_index_sequence<kNetworkWords + 1>{});

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

// Sorts runs of nearly equal length by networks, then merges them two by two.
[[gnu::noinline]] void SortByMerging(uint32_t* words, size_t count, uint32_t* scratch) {
  uint32_t level = 0;
  while (((count - 1) >> level) >= kNetworkWords) ++level;
  const auto startOf = [&](size_t run) { return run * count >> level; };
  for (size_t run = 0; run < size_t{1} << level; ++run)
    kNetworks.sort[startOf(run + 1) - startOf(run)](words + startOf(run));
  uint32_t *from = words, *to = scratch;
  for (; level > 0; --level) {
    for (size_t run = 0; run < size_t{1} << level; run += 2) {
      const size_t start = startOf(run);
      MergeRuns(from + start, startOf(run + 1) - start, startOf(run + 2) - start, to + start);
    }
    std::swap(from, to);
  }
  if (from != words) std::memcpy(words, from, count * sizeof *words);
}

// Sorts by one byte after another, the lowest first, each time keeping the order of before. A byte
// that all words share is skipped: positions seldom use all four.
[[gnu::noinline]] void SortByBytes(uint32_t* words, size_t count, uint32_t* scratch) {
  uint32_t places[4][256] = {};
  for (size_t i = 0; i < count; ++i) {
    ++places[0][words[i] & 255];
    ++places[1][words[i] >> 8 & 255];
    ++places[2][words[i] >> 16 & 255];
    ++places[3][words[i] >> 24];
  }

  uint32_t *from = words, *to = scratch;
  for (uint32_t byte = 0; byte < 4; ++byte) {
    if (places[byte][from[0] >> 8 * byte & 255] == count) continue;
    uint32_t place = 0;
    for (uint32_t& entry : places[byte]) place += std::exchange(entry, place);
    for (size_t i = 0; i < count; ++i) to[places[byte][from[i] >> 8 * byte & 255]++] = from[i];
    std::swap(from, to);
  }
  if (from != words) std::memcpy(words, from, count * sizeof *words);
}

}  // namespace

void SortWords(uint32_t* words, size_t count, uint32_t* scratch) {
  if (count <= kNetworkWords)
    kNetworks.sort[count](words);
  else if (count < kRadixWords)
    SortByMerging(words, count, scratch);
  else
    SortByBytes(words, count, scratch);
}

}  // namespace vantrix
