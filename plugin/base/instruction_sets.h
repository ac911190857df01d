// Which instruction sets the forms may count on.
#pragma once

#include "common/forms.h"
#include "plugin/base/processor.h"

namespace vantrix {

// Written by start-up, read-only afterwards.
extern InstructionSets instructionSets;

// The 16-byte sets are the flags of the same names. A wider one needs the flag hasSSE2, every
// feature that its form is compiled with, and a system that saves the registers: what a
// processor can do, and a system does not save from one thread to the next, is lost.
//
// Asks the processor alone, each leaf once and only where there is one; the enabled state is
// read only where the processor says that it can be.
InstructionSets DetectInstructionSets(const System& system, const ProcessorFeatures& has);

}  // namespace vantrix
