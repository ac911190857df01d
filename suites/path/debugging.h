// Path debugging at start-up: what the host wants.
#pragma once

namespace vantrix {

// Asks the host whether path debugging is on and with which guard value, and reports answers that
// contradict one another.
void AskForPathDebugging();

// Writes the checked routine into its slot if path debugging
// is on. That depends on the host alone, not on the processor.
void InstallPathChecks();

}  // namespace vantrix
