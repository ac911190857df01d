// Sorting of crossings.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantrix {

// Sorts `count` words in ascending order. `scratch` has room for as many; its contents are lost.
// The steps taken do not depend on the order of the words: there is no worst case.
void SortWords(uint32_t* words, size_t count, uint32_t* scratch);

}  // namespace vantrix
