// Which instruction sets the forms may count on.
#pragma once

#include "common/forms.h"
#include "plugin/base/processor.h"

namespace vantrix {

// Written by start-up, read-only afterwards.
extern InstructionSets instructionSets;

// The 16-byte sets are the flags of the same names. A wider set needs the flag hasSSE2, every
// feature that its form is compiled with, and a system that saves its registers: otherwise
// their contents are lost when the system changes threads.
//
// Asks only the processor, each leaf once and only if it exists. The enabled state is read only if
// the processor says that it can be.
InstructionSets DetectInstructionSets(const System& system, const ProcessorFeatures& has);

}  // namespace vantrix
