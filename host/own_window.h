// A program that was started by a double click: the system opens a window for it, and closes it
// when it ends.
#pragma once

#include <filesystem>

namespace vantrix::host {

// Whether this program alone writes to the window that it runs in. A shell would be there too.
bool HasOwnWindow();

// From now on the program's end waits for a key, so that what it printed can be read.
void KeepWindowAtEnd();

// Shows a file as a double click on it would. False where that cannot be done.
bool OpenFile(const std::filesystem::path& path);

}  // namespace vantrix::host
