// Routines for planes that share entries, or whose rows do:
// each entry is read from memory when it is its turn.
#pragma once

#include "common/lanes.h"

namespace vantrix {

// From the first row on each row takes the marks of the row below, then, from the last row on, each
// row takes the marks of the row above.
void SpreadMarksInOrder(uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes);

// Lines of entries, each with a priority and a value, in two planes of the same geometry. Steps are
// in entries: from a line to the next, and from an entry of a line to the next.
template <class T>
struct Lines {
  T *priority, *value;
  int32_t count, length;
  intptr_t lineStep, entryStep;

  // Some of the lines, or of their entries; the first of them is `to` entries further on.
  VX_LANE Lines Part(intptr_t to, int32_t lines, int32_t entries) const {
    return {priority + to, value + to, lines, entries, lineStep, entryStep};
  }
  VX_LANE Lines First(int32_t lines) const { return Part(0, lines, length); }
  VX_LANE Lines After(int32_t lines) const { return Part(lines * lineStep, count - lines, length); }
  VX_LANE Lines FromEntry(intptr_t i) const {
    return Part(i * entryStep, count, static_cast<int32_t>(length - i));
  }
};

// The step from one of `count` lines, or of the entries of a line, to the next.
struct Steps {
  int64_t step, count;
};
// Whether no two entries, of one plane or of both, are the same memory. Planes of which one lies in
// the gaps of the other count as sharing entries.
template <class T>
bool EntriesAreApart(const T* priority, const T* value, Steps lines, Steps entries);
template <class T>
VX_LANE bool EntriesAreApart(Lines<T> lines) {
  return EntriesAreApart<T>(lines.priority, lines.value, {lines.lineStep, lines.count},
                            {lines.entryStep, lines.length});
}

// Takes one line after another. An entry that is taken over receives the value first, then the
// priority. The carried priority `holds` takes nothing over.
template <class T>
void PropagateInOrder(Lines<T> lines, T holds);

}  // namespace vantrix
