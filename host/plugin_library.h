// The plug-in as a file: loaded as any host would.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "plugin/interface.h"

namespace vantrix::host {

// The library that stands beside this program.
std::string DefaultPluginPath();

// Its entry point, or null with the reason in *error. The library stays loaded.
PluginMainRoutine* LoadPlugin(const std::string& path, std::string* error);

// The memory of the library that an entry point lies in, but for its code.
std::vector<std::span<const char>> DataAround(PluginMainRoutine* entry);

}  // namespace vantrix::host
