// Sorting of crossings. No sort's steps depend on the order of the words: there is no worst case.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantrix {

// Sorts `count` words in ascending order. `scratch` has room for as many; its contents are lost.
template <class Form>
void SortWords(uint32_t* words, size_t count, uint32_t* scratch);

// What every form has in common. A network of comparisons sorts up to 16 words.
inline constexpr size_t kNetworkWords = 16;
void SortByNetwork(uint32_t* words, size_t count);

// Sorts by one byte after another.
void SortByBytes(uint32_t* words, size_t count, uint32_t* scratch);

}  // namespace vantrix
