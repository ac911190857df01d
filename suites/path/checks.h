// What the plain and the checked routine check, and where the calc buffer is.
#pragma once

#include <concepts>

#include "suites/path/debug.h"
#include "suites/path/fill_array.h"

namespace vantrix {

// What a row's fold asks of its checks. Require returns the condition.
template <class T>
concept FillChecks = requires(const T& checks, bool holds, const char* message, int32_t line) {
  { T::Require(holds, message, line) } -> std::same_as<bool>;
  checks.Validate(line);
  checks.VerifyGuards(line);
  { checks.GuardWords() } -> std::same_as<uint32_t>;
};

// The plain routine's: nothing is reported, and messages are compiled away.
struct NoChecks {
  const FillArray* array;

  static constexpr bool Require(bool holds, const char*, int32_t) { return holds; }
  static constexpr void Validate(int32_t) {}
  static constexpr void VerifyGuards(int32_t) {}
  static constexpr uint32_t GuardWords() { return 0; }
};

// The checked routine's, for hosts that debug their paths.
struct DebugChecks {
  const FillArray* array;

  // Reports a condition that does not hold.
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
  // How many guard words are between the rows and the calc buffer.
  static uint32_t GuardWords() { return PathDebugGuardValue != 0; }
};

}  // namespace vantrix
