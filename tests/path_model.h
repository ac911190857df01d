// A model of the fold of fill arrays and of all its reports, one step after another, for arrays of
// any contents. The tests and the fuzzer compare both routines with it, word by word.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/exercise/choices.h"
#include "tests/fake_host.h"

namespace vantrix {

// A call: the routine, what the host answered at start-up, the block and the arguments.
struct PathCase {
  bool isChecked = false;
  bool isDebugging = false;  // PathDebugEnabled
  uint32_t guard = 0;        // PathDebugGuardValue
  std::vector<uint32_t> words;
  uint32_t operation = 0, nonZeroWinding = 0;
};

// What a call leaves: the block, what was reported, and the rows that were copied back.
struct PathOutcome {
  struct Copy {
    ptrdiff_t source, destination;  // words from the block's start
    int32_t bytes;
    friend bool operator==(const Copy&, const Copy&) = default;
  };
  std::vector<uint32_t> words;
  std::vector<FakeHost::Report> reports;
  std::vector<Copy> copies;
};

// Makes a call. The block is exactly as large as its head says. Everything else is chosen: counts
// may exceed the room, lists may overlap, and entries may be in order or not.
PathCase ChoosePathCase(host::Choices& choose);

PathOutcome CallRoutine(const PathCase& call);
PathOutcome CallModel(const PathCase& call);

// Returns how routine and model differ, with the call; empty if they agree.
std::string ComparePathCase(const PathCase& call);

}  // namespace vantrix
