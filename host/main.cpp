// vantrix-host: a small host for the plug-in.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "host/demo/demo.h"
#include "host/forms.h"
#include "host/plugin_library.h"
#include "host/services.h"
#include "host/slots.h"
#include "host/tables.h"
#include "host/verify.h"

namespace vantrix::host {
namespace {

constexpr char kHelp[] =
    "vantrix-host [--plugin FILE] COMMAND\n"
    "\n"
    "A small host: it lists its routine suites, starts the plug-in as any host does, and\n"
    "calls routines through its own tables.\n"
    "\n"
    "  slots                what start-up did with each slot of each suite, and in which form\n"
    "                       its kernel stands there\n"
    "  slots --page         the page of slots (docs/SLOTS.md)\n"
    "  verify [SCENES]      each served slot against the host's own routine, bit for bit,\n"
    "                       on SCENES random and edge scenes a slot (2000)\n"
    "  demo [PICTURE] OUT   run a picture through the tables, write the results as PNG\n"
    "                       into the folder OUT, and show the times\n"
    "\n"
    "  --plugin FILE        the plug-in; by default the one beside this program\n"
    "  --help               this text\n";

[[noreturn]] void Fail(const std::string& reason) {
  std::fprintf(stderr, "vantrix-host: %s\n", reason.c_str());
  std::exit(1);
}

PluginMainRoutine* Load(const std::string& path) {
  std::string error;
  PluginMainRoutine* const pluginMain = LoadPlugin(path, &error);
  if (!pluginMain) Fail(error);
  return pluginMain;
}

void StartPlugin(PluginMainRoutine* pluginMain, const Tables& tables) {
  int16_t result = 1;
  const int32_t outcome = pluginMain(kStartUp, tables.Block(), 0, &result);
  if (outcome != 1 || result != 0)
    Fail("start-up failed with " + std::to_string(outcome) + ", result " + std::to_string(result));
}

// What the processor has, and which forms the plug-in found that it runs.
void PrintProcessor(const FormIndex* index) {
  const auto show = [](const char* name, bool has) {
    std::printf("  %s %s\n", has ? "+" : "-", name);
  };
  std::printf("processor %s\n", ProcessorName().c_str());
  show("SSE", __builtin_cpu_supports("sse"));
  show("SSE2", __builtin_cpu_supports("sse2"));
  show("SSSE3", __builtin_cpu_supports("ssse3"));
  show("SSE4.1", __builtin_cpu_supports("sse4.1"));
  if (!index) return;
  std::printf("forms that run here\n");
  for (int32_t form = 0; form < index->count; ++form) show(index->names[form], index->runs(form));
}

int Run(std::vector<std::string> arguments) {
  std::string plugin = DefaultPluginPath();
  if (arguments.size() >= 2 && arguments[0] == "--plugin") {
    plugin = arguments[1];
    arguments.erase(arguments.begin(), arguments.begin() + 2);
  }
  if (arguments.empty() || arguments[0] == "--help" || arguments[0] == "-h") {
    std::fputs(kHelp, arguments.empty() ? stderr : stdout);
    return arguments.empty() ? 1 : 0;
  }
  const std::string command = arguments[0];
  arguments.erase(arguments.begin());
  const size_t count = arguments.size();

  if (command == "slots" && count == 1 && arguments[0] == "--page") {
    const FormIndex* const index = FindFormIndex(Load(plugin));
    if (!index) Fail(plugin + " does not tell the forms of its kernels");
    PrintSlotPage(*index);
    return 0;
  }
  const bool isSlots = command == "slots" && count == 0;
  const bool isVerify = command == "verify" && count <= 1;
  const bool isDemo = command == "demo" && (count == 1 || count == 2);
  if (!isSlots && !isVerify && !isDemo) {
    const bool isKnown = command == "slots" || command == "verify" || command == "demo";
    Fail((isKnown ? "wrong arguments for " : "unknown command ") + command + "; see --help");
  }
  int scenes = 2000;
  if (isVerify && count == 1) scenes = std::atoi(arguments[0].c_str());
  if (scenes < 1) Fail("the number of scenes must be at least 1");

  const Tables tables;
  PluginMainRoutine* const pluginMain = Load(plugin);
  StartPlugin(pluginMain, tables);
  std::printf("started %s\n", plugin.c_str());
  if (isSlots) {
    const FormIndex* const index = FindFormIndex(pluginMain);
    PrintProcessor(index);
    return PrintSlots(tables, index) ? 0 : 1;
  }
  if (isVerify) return Verify(tables, scenes) ? 0 : 1;
  return RunDemo(tables, count == 2 ? arguments[0] : "", arguments.back()) ? 0 : 1;
}

}  // namespace
}  // namespace vantrix::host

int main(int count, char** arguments) {
  return vantrix::host::Run(std::vector<std::string>(arguments + 1, arguments + count));
}
