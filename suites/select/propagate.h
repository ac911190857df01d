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
// another. An entry that receives nothing may be stored, as it is, only if one less than 32 bytes
// away in its plane receives something; if lines side by side fill less than 16 bytes, not even
// then.
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
