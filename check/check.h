// Compares a host's own routines with the plug-in's kernels.
#pragma once

#include <chrono>
#include <filesystem>
#include <vector>

#include "check/host_tables.h"

namespace vantrix::check {

struct Options {
  int scenes = 1000;                           // per slot
  std::chrono::milliseconds limit{10000};      // per call
  std::vector<std::filesystem::path> folders;  // for the report; the first that works is used
};

// Compares every served slot and writes the report. Slots about which
// something was decided here come last. Returns the message for the host.
// The processor's features must be known, and the shared tables built.
std::string Check(const HostTables& tables, const Options& options);

}  // namespace vantrix::check
