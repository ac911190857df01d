// Which sources this program was built from.
#pragma once

namespace vantrix::host {

// The version and the commit.
const char* Version();

}  // namespace vantrix::host
