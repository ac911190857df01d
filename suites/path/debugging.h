// What the host wants of path debugging, asked at start-up.
#pragma once

namespace vantrix {

// Asks the host whether path debugging is on and with which guard value, and reports
// answers that do not fit together.
void AskForPathDebugging();

// Puts the checked fold into its slot where path debugging is on. Which one serves depends on
// the host alone, not on the processor.
void InstallPathChecks();

}  // namespace vantrix
