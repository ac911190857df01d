// Path debugging: what the host answered at start-up, and how the suite reports.
#pragma once

#include <cstdint>

namespace vantrix {

// 1 when the host's answer to the capability 'pdbg' is not zero.
extern uint8_t PathDebugEnabled;

// While debugging, the low 32 bits of the host's answer to 'pdgv', else 0. Not zero
// means that fill arrays carry guard words of this value.
extern uint32_t PathDebugGuardValue;

// The source file that every report of this suite names.
inline constexpr char kPathSourceFile[] = "../sources/CommonPathLoops";

// Flags of a report.
inline constexpr int32_t kDebugCheck = 1;
inline constexpr int32_t kRowCountWarning = 0;

// Calls the host's assertion service, which is expected to return.
void ReportPath(const char* message, const char* sourceFile, int32_t line, int32_t flag);

}  // namespace vantrix
