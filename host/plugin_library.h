// The plug-in as a file: loaded as any host would.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "plugin/base/interface.h"

namespace vantrix::host {

// The file of the running program, whichever library asks.
std::filesystem::path ThisProgram();

// The plug-in and the check library, as they stand beside this program.
std::filesystem::path DefaultPluginPath();
std::filesystem::path DefaultCheckPath();

// Its entry point, or null with the reason in *error. The library stays loaded.
PluginMainRoutine* LoadPlugin(const std::filesystem::path& path, std::string* error);

// The file that the system loaded it from.
std::filesystem::path PathOfLibrary(PluginMainRoutine* entry);

// Whether a routine lies in a library that exports the entry point of plug-ins.
bool LiesInPlugin(Routine routine);

// The memory of the library that an entry point lies in, but for its code.
std::vector<std::span<const char>> DataAround(PluginMainRoutine* entry);

}  // namespace vantrix::host
