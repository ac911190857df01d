// Sorting of crossings.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantrix {

// Sorts `count` words ascending. `scratch` has room for as many and holds anything then.
// The steps taken do not depend on the order of the words: there is no worst case.
void SortWords(uint32_t* words, size_t count, uint32_t* scratch);

}  // namespace vantrix
