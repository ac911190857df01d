// Which sources this program was built from, and by what.
#pragma once

namespace vantrix::host {

// The version and the commit.
const char* Version();

// The compiler and its version.
const char* Compiler();

}  // namespace vantrix::host
