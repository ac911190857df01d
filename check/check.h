// The check: a host's own routines beside the plug-in's kernels.
#pragma once

#include <chrono>
#include <filesystem>
#include <vector>

#include "check/host_tables.h"

namespace vantrix::check {

struct Options {
  int scenes = 1000;                           // a slot
  std::chrono::milliseconds limit{10000};      // of a call
  std::vector<std::filesystem::path> folders;  // where to write, the first that will do
};

// Compares every served slot, those last about which something was decided here, and writes the
// report. Returns what to tell the host. The processor's features are known, the tables built.
std::string Check(const HostTables& tables, const Options& options);

}  // namespace vantrix::check
