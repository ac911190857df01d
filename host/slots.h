// Prints the slot tables.
#pragma once

#include "host/forms.h"
#include "host/tables.h"

namespace vantrix::host {

// Prints what start-up did with every suite, and the form of the kernel in each slot, if the
// plug-in's index reports it. Returns false if the slots that changed are not exactly those whose
// gates this processor opens.
bool PrintSlots(const Tables& tables, const FormIndex* index);

// Prints the page of slots that is in docs/SLOTS.md. Nothing in it differs between processors.
void PrintSlotPage(const FormIndex& index);

}  // namespace vantrix::host
