// Holds every served slot to the host's default.
#pragma once

#include "host/tables.h"

namespace vantrix::host {

// Runs `scenes` scenes for each slot that the plug-in serves, prints one line a slot
// and at the end "N passed, N failed" with the number of slots. True when none failed.
bool Verify(const Tables& tables, int scenes);

}  // namespace vantrix::host
