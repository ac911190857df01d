// Holds every slot that the plug-in writes to the host's own routine.
#pragma once

#include <optional>
#include <string>

#include "host/forms.h"
#include "host/tables.h"

namespace vantrix::host {

struct VerifyOptions {
  int scenes;                // a slot
  std::string slot;          // only this one, as blnd:2; all if empty
  std::optional<int> scene;  // only this one
  std::string program;       // how this program was called, with the plug-in
};

// Served slots are compared with the host's routines in scenes, passed-through ones must reach
// them with every argument, and no other entry may have changed. Prints one line a slot, and at the
// end "N passed, N failed". Returns whether none failed and one passed.
bool Verify(const Tables& tables, const FormIndex* index, const VerifyOptions& options);

}  // namespace vantrix::host
