#include "suites/path/sort.h"

#include <cstring>
#include <utility>

#include "suites/path/sort_registers.h"

namespace vantrix {
namespace {

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
void SortCount([[maybe_unused]] uint32_t* words) {
  static constexpr Network<kCount> kNetwork;
  uint32_t v[kCount + 1];
  [&]<size_t... k>(std::index_sequence<k...>)
      VX_INLINED { ((v[k] = words[k]), ...); }(std::make_index_sequence<kCount>{});
  [&]<size_t... k>(std::index_sequence<k...>) VX_INLINED {
    (PutInOrder(v[kNetwork.pairs[k].low], v[kNetwork.pairs[k].high]), ...);
  }(std::make_index_sequence<kNetwork.size>{});
  [&]<size_t... k>(std::index_sequence<k...>)
      VX_INLINED { ((words[k] = v[k]), ...); }(std::make_index_sequence<kCount>{});
}

struct Networks {
  void (*sort[kNetworkWords + 1])(uint32_t* words);
};
constexpr Networks kNetworks = []<size_t... k>(std::index_sequence<k...>) {
  return Networks{{SortCount<k>...}};
}(std::make_index_sequence<kNetworkWords + 1>{});

}  // namespace

void SortByNetwork(uint32_t* words, size_t count) { kNetworks.sort[count](words); }

// The lowest byte comes first. Each time the order of before is kept. A byte that all words share
// is skipped: positions seldom use all four.
void SortByBytes(uint32_t* words, size_t count, uint32_t* scratch) {
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

}  // namespace vantrix
