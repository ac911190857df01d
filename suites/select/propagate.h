// Propagation along lines, suite sele slots 35 and 73.
//
// Two planes of the same geometry hold a priority and a value for each entry. Each line is walked
// from its second entry on. Let d be the priority and v the value that the entry before has by
// then, and d' be d - 1 if d is above 1, else d. An entry of priority c receives v and d', unless
// d' is 0 or c is above d'. So a priority of n reaches n - 1 entries and then goes on as 1, until
// an entry of higher priority stops it. Numbers are unsigned.
//
// Line i starts lineStep x i after the first pointers; its entries lie entryStep apart. The first
// entry of a line never changes. If lines or planes share entries, lines are walked one after
// another. A block of lines is stored only if one of its entries receives something; of lines that
// fill no block only such entries are. What receives the pair that it holds may be stored.
#pragma once

#include "suites/select/signatures.h"

namespace vantrix {

// Steps are in entries.
template <class Form>
Propagate8Routine SelectPropagate8;

// Steps are in bytes, halved towards minus infinity. If lines lie side by side (a line step of one
// entry), in each whole group of eight lines d' = 32768 is passed over instead of d' = 0: an entry
// of priority 0 after one of priority 0 receives the value. The other lines follow the rule above.
template <class Form>
Propagate16Routine SelectPropagate16;

}  // namespace vantrix
