// Compares every slot that the plug-in writes with the host's own routine.
#pragma once

#include <optional>
#include <string>

#include "host/forms.h"
#include "host/tables.h"

namespace vantrix::host {

struct VerifyOptions {
  int scenes;                // per slot
  std::string slot;          // only this one, such as blnd:2; all if empty
  std::optional<int> scene;  // only this one
  std::string program;       // the command that calls this program with the plug-in
};

// Compares served slots with the host's routines in scenes. Pass-throughs must reach those routines
// with every argument, and no other entry may have changed. Prints one line per slot, and at
// the end "N passed, N failed". Returns whether at least one slot passed and none failed.
bool Verify(const Tables& tables, const FormIndex* index, const VerifyOptions& options);

}  // namespace vantrix::host
