// vantrix-host: a small host for the plug-in.
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <new>
#include <string>
#include <vector>

#if defined(_WIN32)
#include <windows.h>
// After windows.h, whose types it needs.
#include <shellapi.h>
#endif

#include "host/arguments.h"
#include "host/bench/bench.h"
#include "host/demo/demo.h"
#include "host/exercise/fault.h"
#include "host/forms.h"
#include "host/machine.h"
#include "host/own_window.h"
#include "host/paths.h"
#include "host/plugin_library.h"
#include "host/services.h"
#include "host/sha256.h"
#include "host/slots.h"
#include "host/tables.h"
#include "host/verify.h"
#include "host/version.h"

namespace vantrix::host {
namespace {

using Command = Request::Command;

constexpr int kScenesOfShortLook = 200;  // per slot

// Set while a routine may end the program, even with status 0.
bool isAtWork;

[[noreturn]] void Fail(const std::string& reason) {
  isAtWork = false;
  std::fprintf(stderr, "vantrix-host: %s\n", reason.c_str());
  std::exit(1);
}

PluginMainRoutine* Load(const std::filesystem::path& path) {
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

// Prints which programs make the results. A question about a result needs that first.
void PrintLibrary(const std::filesystem::path& library, const FormIndex* index) {
  std::printf("vantrix-host %s\nstarted %s\n", Version(), TextOf(library).c_str());
  std::printf("  version %s\n  SHA-256 %s\n",
              index ? index->version : "unknown: the library does not tell it",
              Sha256OfFile(library).c_str());
}

// Prints what the processor has, and which forms it runs according to the plug-in.
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

// Prints what was started. Returns the index of the forms; null if the plug-in has none.
const FormIndex* Introduce(PluginMainRoutine* pluginMain) {
  const FormIndex* const index = FindFormIndex(pluginMain);
  PrintLibrary(PathOfLibrary(pluginMain), index);
  return index;
}

// Returns a folder for results: beside this program or, if
// nothing can be written there, among the temporary files.
std::filesystem::path FolderOfOwn() {
  constexpr char kName[] = "vantrix-demo";
  std::string error;
  const std::filesystem::path beside = DefaultPluginPath().parent_path() / kName;
  return MakeFolder(beside, &error) ? beside : std::filesystem::temp_directory_path() / kName;
}

// Shows a short look at everything to a user who double-clicks the program.
int RunInOwnWindow() {
  KeepWindowAtEnd();
  const Tables tables;
  PluginMainRoutine* const pluginMain = Load(DefaultPluginPath());
  StartPlugin(pluginMain, tables);
  const FormIndex* const index = Introduce(pluginMain);
  PrintProcessor(index);
  const bool isVerified = Verify(tables, index, {kScenesOfShortLook, "", {}, "vantrix-host"});
  const std::filesystem::path folder = FolderOfOwn();
  std::filesystem::path sample = DefaultPluginPath().parent_path() / "sample.jpg";
  std::error_code ignored;
  if (!std::filesystem::exists(sample, ignored)) sample.clear();
  const bool isShown = RunDemo(tables, index, {sample, folder});
  if (isShown && !OpenFile(folder / kPage))
    std::printf("Open %s in a browser.\n", TextOf(folder / kPage).c_str());
  return isVerified && isShown ? 0 : 1;
}

// Whether no table has changed.
bool IsUntouched(const Tables& tables) {
  for (const SuiteEntry& suite : Catalog())
    for (size_t slot = 0; slot < tables.EntryCount(suite.index); ++slot)
      if (tables.IsChanged(suite.index, static_cast<uint16_t>(slot))) return false;
  return true;
}

// Whether the check library said that nothing differed or faulted, and where its report is.
bool IsGoodReport(const std::string& report) {
  return report.find(" 0 different, 0 faulted") != report.npos &&
         report.find("; the report is in ") != report.npos;
}

// Returns the command that calls this program with a plug-in.
std::string Called(const std::filesystem::path& plugin) {
  return plugin == DefaultPluginPath() ? "vantrix-host"
                                       : "vantrix-host --plugin \"" + TextOf(plugin) + '"';
}

// Returns the status that work ends with. Ends the program if a routine faults; `verify` names it.
int StatusOf(const std::function<bool()>& work) {
  const FaultWatch watch;
  bool isGood = false;
  if (const char* const fault = FaultIn([&] { isGood = work(); }))
    Fail(std::string("a routine ") + fault + "; verify tells which");
  return isGood ? 0 : 1;
}

int Run(std::vector<std::string> arguments) {
  if (arguments.empty() && HasOwnWindow()) return RunInOwnWindow();
  int status = 0;
  const auto request = ParseArguments(std::move(arguments), &status);
  if (!request) return status;

  PluginMainRoutine* const pluginMain = Load(request->plugin);
  if (request->command == Command::kSlotPage) {
    const FormIndex* const index = FindFormIndex(pluginMain);
    if (!index) Fail(TextOf(request->plugin) + " does not tell the forms of its kernels");
    PrintSlotPage(*index);
    return 0;
  }
  const Tables tables;
  services.printsReports = request->command != Command::kCheck;
  StartPlugin(pluginMain, tables);
  if (const std::string wrong = WrongWithSlots(tables, request->slots); !wrong.empty()) Fail(wrong);
  const FormIndex* const index = Introduce(pluginMain);
  switch (request->command) {
    case Command::kVerify:
      PrintProcessor(index);
      return Verify(tables, index,
                    {request->scenes, request->slot, request->scene, Called(request->plugin)})
                 ? 0
                 : 1;
    case Command::kCheck:
      if (!IsUntouched(tables)) Fail("the check changed the tables");
      std::printf("%s\n", services.report.c_str());
      return IsGoodReport(services.report) ? 0 : 1;
    case Command::kBench:
      PrintProcessor(index);
      return StatusOf([&] { return RunBench(tables, index, {request->slots, request->seconds}); });
    case Command::kDemo:
      return StatusOf([&] { return RunDemo(tables, index, {request->picture, request->folder}); });
    default:
      PrintProcessor(index);
      return PrintSlots(tables, index) ? 0 : 1;
  }
}

// Returns the arguments in UTF-8.
std::vector<std::string> Arguments(int count, char** arguments) {
#if defined(_WIN32)
  static_cast<void>(arguments);
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> texts;
  for (int i = 1; i < count; ++i) texts.push_back(TextOf(std::filesystem::path(wide[i])));
  LocalFree(wide);
  SetConsoleOutputCP(CP_UTF8);
  return texts;
#else
  return {arguments + 1, arguments + count};
#endif
}

}  // namespace
}  // namespace vantrix::host

int main(int count, char** arguments) {
  std::atexit([] {
    if (!vantrix::host::isAtWork) return;
    std::fputs("vantrix-host: a routine ended the program\n", stderr);
    std::_Exit(1);
  });
  int status;
  vantrix::host::isAtWork = true;
  try {
    status = vantrix::host::Run(vantrix::host::Arguments(count, arguments));
  } catch (const std::bad_alloc&) {
    vantrix::host::Fail("out of memory");
  }
  vantrix::host::isAtWork = false;
  // Output may be written only now, and that may fail.
  if (std::fflush(stdout) != 0 || std::ferror(stdout)) {
    std::fputs("vantrix-host: cannot write the output\n", stderr);
    return 1;
  }
  return status;
}
