// The plug-in's file, loaded as any host loads it.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "plugin/base/interface.h"

namespace vantrix::host {

// Returns the file of the running program, whichever library asks.
std::filesystem::path ThisProgram();

// Return the plug-in and the check library that lie beside this program.
std::filesystem::path DefaultPluginPath();
std::filesystem::path DefaultCheckPath();

// Loads a plug-in. Returns its entry point, or null with
// the reason in *error. The library stays loaded.
PluginMainRoutine* LoadPlugin(const std::filesystem::path& path, std::string* error);

// Returns the file of the library that an entry point lies in.
std::filesystem::path PathOfLibrary(PluginMainRoutine* entry);

// Whether a routine lies in a library that exports the entry point of plug-ins.
bool LiesInPlugin(Routine routine);

// Returns the memory of the library that an entry point lies in, except its code.
std::vector<std::span<const char>> DataAround(PluginMainRoutine* entry);

}  // namespace vantrix::host
