// A model of the fold of fill arrays and of all its reports, one step after another, for arrays of
// any contents. The tests and the fuzzer compare both routines with it, word by word.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/exercise/choices.h"
#include "suites/path/signatures.h"
#include "tests/fake_host.h"

namespace vantrix {

// Returns the routines that run here: the checked one, or the plain one in every form.
std::vector<FillArrayRoutine*> FoldRoutines(bool checked);

// A call: the kind of routine, what the host answered at start-up, the block and the arguments.
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

PathOutcome CallRoutine(const PathCase& call, FillArrayRoutine* fold);
PathOutcome CallModel(const PathCase& call);

// Returns how a routine of that kind and the model differ, with the call; empty if all agree.
std::string ComparePathCase(const PathCase& call);

}  // namespace vantrix
