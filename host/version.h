// The sources that this program was built from, and the compiler.
#pragma once

namespace vantrix::host {

// Returns the version and the commit.
const char* Version();

// Returns the compiler and its version.
const char* Compiler();

}  // namespace vantrix::host
