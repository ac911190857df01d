// The plug-in as a file: loaded as any host would.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "plugin/interface.h"

namespace vantrix::host {

// The library that stands beside this program.
std::filesystem::path DefaultPluginPath();

// Its entry point, or null with the reason in *error. The library stays loaded.
PluginMainRoutine* LoadPlugin(const std::filesystem::path& path, std::string* error);

// The file that the system loaded it from.
std::filesystem::path PathOfLibrary(PluginMainRoutine* entry);

// The memory of the library that an entry point lies in, but for its code.
std::vector<std::span<const char>> DataAround(PluginMainRoutine* entry);

}  // namespace vantrix::host
