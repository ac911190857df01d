// Masks whose rows or planes share entries: each entry is read from memory when its turn comes.
#pragma once

#include <cstdint>

namespace vantrix {

// The marks of the row below are taken from the first row on, then those of the row above from
// the last row on.
void SpreadMarksInOrder(uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes);

// Whether no entry of a priority is another one's, or an entry of a value; planes that lie one in
// the other's gaps count as sharing. Steps in entries.
template <class T>
bool EntriesAreApart(const T* priority, const T* value, int32_t lineCount, int32_t lineLength,
                     int32_t lineStep, int32_t entryStep);

// Line after line. An entry that takes over receives the value, then the priority; the carried
// priority `holds` holds it back.
template <class T>
void PropagateInOrder(T* priority, T* value, int32_t lineCount, int32_t lineLength,
                      int32_t lineStep, int32_t entryStep, T holds);

}  // namespace vantrix
