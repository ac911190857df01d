// Shows the slot tables.
#pragma once

#include "host/forms.h"
#include "host/tables.h"

namespace vantrix::host {

// What start-up did with every suite, and which form of its kernel stands in each slot,
// where the plug-in's index tells it. False when the slots that changed are not exactly
// those whose gates this processor opens.
bool PrintSlots(const Tables& tables, const FormIndex* index);

// The page of slots, as docs/SLOTS.md holds it: nothing that differs between processors.
void PrintSlotPage(const FormIndex& index);

}  // namespace vantrix::host
