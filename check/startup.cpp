// Start-up of the check: the same as the plug-in's, up to where that installs its kernels.
#include "plugin/startup.h"

#include <exception>

#include "check/check.h"
#include "common/tables.h"
#include "host/plugin_library.h"
#include "plugin/base/instruction_sets.h"
#include "plugin/base/suites.h"

extern "C" vantrix::PluginMainRoutine PluginMain;

namespace vantrix {
namespace {

// Runs the check. No exception in it may reach the host.
std::string CheckBesideLibrary(const check::HostTables& tables) {
  try {
    check::Options options;
    options.folders = {std::filesystem::absolute(host::PathOfLibrary(PluginMain)).parent_path()};
    std::error_code error;
    const std::filesystem::path temporary = std::filesystem::temp_directory_path(error);
    if (!error) options.folders.push_back(temporary);
    return check::Check(tables, options);
  } catch (const std::exception& error) {
    return std::string("Vantrix check: it ended early: ") + error.what();
  }
}

}  // namespace

int32_t Startup(const SuiteParameterBlock* block, int16_t* result, const System& system) {
  processorFeatures = DetectFeatures(system);
  instructionSets = DetectInstructionSets(system, processorFeatures);
  *result = AcquireSuites(block, [](Routine) { return false; });
  if (*result != 0) return *result;
  BuildSharedTables();
  if (processorFeatures.hasSSE2) FillSSE2Constants();

  const check::HostTables tables(block);
  tables.Say(CheckBesideLibrary(tables));
  *result = 0;
  return 1;
}

}  // namespace vantrix
