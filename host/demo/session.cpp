#include "host/demo/session.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "host/paths.h"

namespace vantrix::host {

double TimeOf(const std::function<void()>& work) {
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  work();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

void Session::Note(SuiteIndex suite, uint16_t slot, Times times, bool isSame) {
  isGood_ &= isSame;
  for (Row& row : rows_) {
    if (row.suite != suite || row.slot != slot) continue;
    row.times.byDefault += times.byDefault;
    row.times.byPlugin += times.byPlugin;
    row.isSame &= isSame;
    return;
  }
  rows_.push_back({suite, slot, times, isSame});
}

void Session::Save(const std::string& name, const Picture& picture) {
  std::string error;
  const std::filesystem::path path = folder_ / name;
  if (WritePicture(path, picture, &error)) {
    std::printf("  %s\n", TextOf(path).c_str());
    return;
  }
  std::fprintf(stderr, "vantrix-host: %s\n", error.c_str());
  isGood_ = false;
}

std::string Session::Report() const {
  std::string report =
      "slot      routine                           default     plug-in    ratio  result\n";
  for (const Row& row : rows_) {
    const SuiteEntry& suite = Catalog()[row.suite];
    const auto slot = std::find_if(suite.slots.begin(), suite.slots.end(),
                                   [&](const Slot& s) { return s.index == row.slot; });
    char line[160];
    std::snprintf(line, sizeof line, "%s %-4d %-30s %9.3f ms %9.3f ms %7.1fx  %s\n", suite.name,
                  row.slot, slot == suite.slots.end() ? "" : slot->name, 1e3 * row.times.byDefault,
                  1e3 * row.times.byPlugin, row.times.byDefault / row.times.byPlugin,
                  row.isSame ? "the same" : "DIFFERS");
    report += line;
  }
  return report;
}

}  // namespace vantrix::host
