// Path debugging: what the host said at start-up, and how the suite reports.
#pragma once

#include <cstdint>

namespace vantrix {

// 1 if the host's answer to the capability query 'pdbg' is not zero.
extern uint8_t PathDebugEnabled;

// The low 32 bits of the host's answer to 'pdgv' if PathDebugEnabled, else 0. If it is not zero,
// fill arrays have guard words of this value.
extern uint32_t PathDebugGuardValue;

// The source file that every report of this suite names. The texts, this
// name and the line numbers of reports are part of the contract with hosts:
// the lines are not those of our sources, and none of it may change. Each unit has its own copy.
constexpr char kPathSourceFile[] = "../sources/CommonPathLoops";

// Flags of a report.
inline constexpr int32_t kDebugCheck = 1;
inline constexpr int32_t kRowCountWarning = 0;

// Calls the host's assertion service, which is assumed to return.
void ReportPath(const char* message, const char* sourceFile, int32_t line, int32_t flag);

}  // namespace vantrix
