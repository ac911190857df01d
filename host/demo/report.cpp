#include "host/demo/report.h"

#include <cstdio>

namespace vantrix::host {

std::string TextReport(const std::vector<SlotRuns>& all) {
  std::string report =
      "slot      routine                          ordinary     plug-in    ratio  result\n";
  for (const SlotRuns& runs : all) {
    const SuiteEntry& suite = Catalog()[runs.suite];
    const Slot* const slot = FindSlot(suite, runs.slot);
    char line[160];
    std::snprintf(line, sizeof line, "%s %-4d %-30s %9.3f ms %9.3f ms %7.1fx  %s\n", suite.name,
                  runs.slot, slot ? slot->name : "", 1e3 * runs.times.byOrdinary,
                  1e3 * runs.times.byPlugin, runs.times.byOrdinary / runs.times.byPlugin,
                  runs.isSame ? "the same" : "DIFFERS");
    report += line;
  }
  return report;
}

}  // namespace vantrix::host
