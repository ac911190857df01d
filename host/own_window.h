// The window of a program that was started by a double click: the system opens it, and closes it
// when the program ends.
#pragma once

#include <filesystem>

namespace vantrix::host {

// Whether this program is alone in the window that it runs in. A shell would be there too.
bool HasOwnWindow();

// Makes the program wait for a key when it ends, so that its output can be read.
void KeepWindowAtEnd();

// Opens a file as a double click on it would. Returns false if that fails.
bool OpenFile(const std::filesystem::path& path);

}  // namespace vantrix::host
