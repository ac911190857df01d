// What a person asks of vantrix-host.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vantrix::host {

struct Request {
  enum class Command { kSlots, kSlotPage, kVerify, kBench, kDemo, kCheck } command;
  std::filesystem::path plugin;
  int scenes = 2000;               // verify: scenes a slot
  std::string slot;                // verify: one slot, as blnd:2; all if empty
  std::optional<int> scene;        // verify: one scene
  std::vector<std::string> slots;  // bench: these slots; all that are served if empty
  double seconds = 0.03;           // bench: a measurement
  std::filesystem::path picture;   // demo: a generated one if empty
  std::filesystem::path folder;    // demo
};

// The request; or none, with the status to end with: what was asked for is shown, or one line says
// what is wrong.
std::optional<Request> ParseArguments(std::vector<std::string> arguments, int* status);

}  // namespace vantrix::host
