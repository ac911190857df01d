// What is compared for a slot, and the result.
#pragma once

#include <string>
#include <vector>

#include "host/exercise/scene.h"

namespace vantrix::check {

struct NamedRoutine {
  std::string name;
  Routine routine;
};

// A served slot: the host's routine, and our kernel in every form that this processor runs.
struct Candidate {
  std::string name;       // such as blnd:2
  const char* routine;    // our name for it
  const char* arguments;  // their names, separated by commas
  bool isBoolean;         // its result is in the low byte, with anything above it
  host::Exercise* exercise;
  Routine hosts;
  std::vector<NamedRoutine> forms;
  const char* decision;  // what was decided here about it; null if nothing was
  std::string notTried;  // why it cannot be compared; empty if it can
};

struct Verdict {
  enum class Kind { kEqual, kDifferent, kFaulted, kNotTried };
  Kind kind = Kind::kEqual;
  std::string words;
};

// Returns one word or two.
const char* NameOf(Verdict::Kind kind);

}  // namespace vantrix::check
