// Propagation along lines, suite sele slots 35 and 73.
//
// Two planes of one geometry hold a priority and a value for each entry. Each line is
// walked from its second entry on. With d the priority and v the value of the entry before,
// as they stand by then, and d' = d - 1 where d is above 1, else d: an entry of priority c
// receives v and d', unless d' is 0 or c is above d'. So a priority reaches as far as it is
// high, 1 goes on for ever, and a higher one on the way wins. Numbers are unsigned.
//
// Line i starts lineStep x i from the first pointers, its entries lie entryStep apart. A line's
// first entry never changes. Where lines or planes share entries, lines are walked one by one.
// Of either plane a block of lines is stored only if one of its entries changes; of lines that fill
// no block only entries that change are.
#pragma once

#include "common/forms.h"
#include "suites/select/signatures.h"

namespace vantrix {

// Steps in entries.
template <class Form>
void SelectPropagate8(uint8_t* priority, uint8_t* value, int32_t lineCount, int32_t lineLength,
                      int32_t lineStep, int32_t entryStep);

// Steps in bytes, halved towards minus infinity. Where lines lie side by side (a line step
// of one entry), each whole group of eight lines is held back by d' = 32768 instead of
// d' = 0: an entry of priority 0 after one of priority 0 receives the value. The lines left
// over follow the rule.
template <class Form>
void SelectPropagate16(uint16_t* priority, uint16_t* value, int32_t lineCount, int32_t lineLength,
                       int32_t lineStep, int32_t entryStep);

}  // namespace vantrix
