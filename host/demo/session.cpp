#include "host/demo/session.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace vantrix::host {

double BestTime(const std::function<void()>& prepare, const std::function<void()>& work) {
  using Clock = std::chrono::steady_clock;
  double best = 1e30, spent = 0;
  for (int run = 0; run < 20 && (run < 3 || spent < 0.05); ++run) {
    prepare();
    const auto start = Clock::now();
    work();
    const double time = std::chrono::duration<double>(Clock::now() - start).count();
    best = std::min(best, time);
    spent += time;
  }
  return best;
}

Session::Row& Session::RowOf(SuiteIndex suite, uint16_t slot) {
  for (Row& row : rows_)
    if (row.suite == suite && row.slot == slot) return row;
  rows_.push_back({suite, slot});
  return rows_.back();
}

void Session::Save(const std::string& name, const Picture& picture) {
  std::string error;
  const std::string path = folder_ + "/" + name;
  if (WritePicture(path, picture, &error)) {
    std::printf("  %s\n", path.c_str());
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
                  row.slot, slot == suite.slots.end() ? "" : slot->name, 1e3 * row.defaultTime,
                  1e3 * row.liveTime, row.defaultTime / row.liveTime,
                  row.isSame ? "the same" : "DIFFERS");
    report += line;
  }
  return report;
}

}  // namespace vantrix::host
