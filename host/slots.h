// Shows the slot tables.
#pragma once

#include "host/tables.h"

namespace vantrix::host {

// What start-up did with every suite. False when the slots that changed are not
// exactly those whose gates this processor opens.
bool PrintSlots(const Tables& tables);

// The page of slots, as docs/SLOTS.md holds it. Needs no plug-in.
void PrintSlotPage();

}  // namespace vantrix::host
