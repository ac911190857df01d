// What the user asks of vantrix-host.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vantrix::host {

struct Request {
  enum class Command { kSlots, kSlotPage, kVerify, kBench, kDemo, kCheck } command;
  std::filesystem::path plugin;
  int scenes = 2000;               // verify: scenes per slot
  std::string slot;                // verify: only this slot, such as blnd:2; all if empty
  std::optional<int> scene;        // verify: only this scene
  std::vector<std::string> slots;  // bench: only these slots; all served slots if empty
  double seconds = 0.03;           // bench: per routine and plane size
  std::filesystem::path picture;   // demo: a generated picture if empty
  std::filesystem::path folder;    // demo
};

// Returns the request. If there is none, *status is the program's exit status: help or the version
// was printed, or one line that says what is wrong.
std::optional<Request> ParseArguments(std::vector<std::string> arguments, int* status);

}  // namespace vantrix::host
