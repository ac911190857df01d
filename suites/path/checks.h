// What the two forms of the fold check. They differ in nothing else.
#pragma once

#include "suites/path/debug.h"
#include "suites/path/fill_array.h"

namespace vantrix {

// The plain form: every condition is passed on, and what it says is compiled away.
struct NoChecks {
  const FillArray* array;

  static constexpr bool Require(bool holds, const char*, int32_t) { return holds; }
  static constexpr void Validate(int32_t) {}
  static constexpr void VerifyGuards(int32_t) {}
  static constexpr uint32_t GuardWords() { return 0; }
};

// The form for hosts that debug their paths.
struct DebugChecks {
  const FillArray* array;

  // Answers the condition; reports where it does not hold.
  static bool Require(bool holds, const char* message, int32_t line) {
    if (!holds && PathDebugEnabled) ReportPath(message, kPathSourceFile, line, kDebugCheck);
    return holds;
  }
  void Validate(int32_t line) const {
    if (PathDebugEnabled) ValidateFillArray(array, kPathSourceFile, line);
  }
  void VerifyGuards(int32_t line) const {
    if (PathDebugGuardValue != 0) VerifyPathFillArray(array, kPathSourceFile, line);
  }
  // Between the rows and the calc buffer.
  static uint32_t GuardWords() { return PathDebugGuardValue != 0; }
};

}  // namespace vantrix
