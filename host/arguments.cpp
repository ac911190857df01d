#include "host/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>

#include "host/paths.h"
#include "host/plugin_library.h"
#include "host/version.h"

namespace vantrix::host {
namespace {

constexpr char kAbout[] =
    "A small host: it lists its routine suites, starts the plug-in as any host does, and calls\n"
    "routines through its own tables.";

// Accepts a number in a range. Text that is not a number is not in it, and neither is NaN.
CLI::Validator Between(double least, double most) {
  return CLI::Validator(
      [=](const std::string& text) {
        double value = 0;
        const bool isIn = CLI::detail::lexical_cast(text, value) && value >= least && value <= most;
        return isIn ? std::string() : text + " is not a number of seconds that fits";
      },
      "");
}

// Accepts decimal digits only: the parser would also take
// octal and hexadecimal digits, spaces and signs.
std::string WrongWithNumber(const std::string& text) {
  const bool isNumber = !text.empty() && text.find_first_not_of("0123456789") == text.npos &&
                        (text == "0" || text[0] != '0');
  return isNumber ? "" : text + " is not a number in decimal digits";
}
std::string WrongWithSlotName(const std::string& text) {
  const size_t colon = text.find(':');
  const bool isName = colon == 4 && text.find_first_not_of("abcdefghijklmnopqrstuvwxyz") == colon &&
                      WrongWithNumber(text.substr(colon + 1)).empty();
  return isName ? "" : text + " is not a slot, as blnd:2";
}
std::string WrongWithFile(const std::string& text) {
  return text.empty() ? "an empty text names no file" : "";
}
CLI::Validator Checked(std::string (*wrongWith)(const std::string&)) {
  return CLI::Validator([=](const std::string& text) { return wrongWith(text); }, "");
}

}  // namespace

std::optional<Request> ParseArguments(std::vector<std::string> arguments, int* status) {
  CLI::App app(kAbout, "vantrix-host");
  app.set_help_all_flag("--help-all", "Print the help of every command");
  const std::string version = std::string("vantrix-host ") + Version();
  app.set_version_flag("--version", version);
  app.allow_windows_style_options(false);  // a path may begin with a slash
  app.require_subcommand(1);
  std::string plugin, picture, folder = "out";
  app.add_option("--plugin", plugin,
                 "The plug-in, or the check library; by default the one beside this program")
      ->type_name("FILE")
      ->check(Checked(WrongWithFile));
  Request request{};

  CLI::App* const slots = app.add_subcommand(
      "slots", "What start-up did with each slot, and in which form its kernel stands there");
  bool isPage = false;
  slots->add_flag("--page", isPage, "Print the page of slots (docs/SLOTS.md)");

  CLI::App* const verify = app.add_subcommand(
      "verify",
      "Compare each slot with the host's own routine, bit for bit, in random and edge "
      "scenes");
  constexpr int kMost = 1000000000;
  verify->add_option("scenes,--scenes", request.scenes, "Scenes a slot")
      ->type_name("SCENES")
      ->capture_default_str()
      ->check(Checked(WrongWithNumber))
      ->check(CLI::Range(1, kMost));
  verify->add_option("--slot", request.slot, "Only this slot, as blnd:2")
      ->type_name("SUITE:SLOT")
      ->check(Checked(WrongWithSlotName));
  verify->add_option("--scene", request.scene, "Only this scene")
      ->type_name("SCENE")
      ->check(Checked(WrongWithNumber))
      ->check(CLI::Range(0, kMost));

  CLI::App* const bench = app.add_subcommand(
      "bench", "Measure each served slot beside an ordinary routine and the host's own");
  bench->add_option("--slot", request.slots, "Only this slot, as blnd:2; may be given again")
      ->type_name("SUITE:SLOT")
      ->check(Checked(WrongWithSlotName));
  bench->add_option("--time", request.seconds, "Seconds for a routine in planes of one size")
      ->type_name("SECONDS")
      ->capture_default_str()
      ->check(Between(1e-4, 60));

  CLI::App* const demo =
      app.add_subcommand("demo", "Run a picture through the tables: results as PNG, and the times");
  demo->add_option("picture", picture, "A picture; by default one is generated")
      ->type_name("PICTURE")
      ->check(Checked(WrongWithFile));
  demo->add_option("--out", folder, "The folder for results")
      ->type_name("FOLDER")
      ->capture_default_str()
      ->check(Checked(WrongWithFile));

  CLI::App* const check = app.add_subcommand(
      "check", "Run the check library, which compares this host's own routines with the kernels");

  for (CLI::App* const command : {slots, verify, bench, demo, check})
    command->set_version_flag("--version", version);
  try {
    std::reverse(arguments.begin(), arguments.end());
    app.parse(std::move(arguments));
  } catch (const CLI::Success& asked) {
    *status = app.exit(asked);
    return {};
  } catch (const CLI::ParseError& error) {
    const std::vector<std::string> unknown = app.remaining();
    const std::string reason = unknown.empty() ? error.what() : "unknown argument " + unknown[0];
    std::fprintf(stderr, "vantrix-host: %s; see --help\n", reason.c_str());
    *status = 1;
    return {};
  }
  request.command = slots->parsed()
                        ? isPage ? Request::Command::kSlotPage : Request::Command::kSlots
                    : verify->parsed() ? Request::Command::kVerify
                    : check->parsed()  ? Request::Command::kCheck
                    : bench->parsed()  ? Request::Command::kBench
                                       : Request::Command::kDemo;
  request.plugin = !plugin.empty()   ? PathOf(plugin)
                   : check->parsed() ? DefaultCheckPath()
                                     : DefaultPluginPath();
  request.picture = PathOf(picture);
  request.folder = PathOf(folder);
  return request;
}

}  // namespace vantrix::host
