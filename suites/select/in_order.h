// Routines for masks whose rows or planes share entries:
// each entry is read from memory when it is its turn.
#pragma once

#include <cstdint>

namespace vantrix {

// From the first row on each row takes the marks of the row below, then, from the last row on, each
// row takes the marks of the row above.
void SpreadMarksInOrder(uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes);

// Whether no two entries, of one plane or of both, are the same memory. Planes of which one lies in
// the gaps of the other count as sharing entries. Steps are in entries.
template <class T>
bool EntriesAreApart(const T* priority, const T* value, int32_t lineCount, int32_t lineLength,
                     int32_t lineStep, int32_t entryStep);

// Takes one line after another. An entry that is taken over receives the value first, then the
// priority. The carried priority `holds` takes nothing over.
template <class T>
void PropagateInOrder(T* priority, T* value, int32_t lineCount, int32_t lineLength,
                      int32_t lineStep, int32_t entryStep, T holds);

}  // namespace vantrix
