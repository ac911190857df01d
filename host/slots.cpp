#include "host/slots.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace vantrix::host {
namespace {

// The line of a slot. Two lines of a suite for one slot become one with both gates.
struct Line {
  uint16_t index;
  std::string gates;
  bool isOpen;
  const Slot* slot;
};
std::vector<Line> LinesOf(const SuiteEntry& suite) {
  std::vector<Line> lines;
  for (const Slot& slot : suite.slots) {
    const bool isOpen = ProcessorOpens(slot.gate);
    const auto same = std::find_if(lines.begin(), lines.end(),
                                   [&](const Line& line) { return line.index == slot.index; });
    if (same == lines.end()) {
      lines.push_back({slot.index, NameOf(slot.gate), isOpen, &slot});
    } else {
      same->gates += std::string(", ") + NameOf(slot.gate);
      same->isOpen |= isOpen;
    }
  }
  std::sort(lines.begin(), lines.end(),
            [](const Line& a, const Line& b) { return a.index < b.index; });
  return lines;
}

const char* StateOf(const Slot& slot) { return slot.IsServed() ? "served" : "passed through"; }

// Returns the form of a slot's kernel; empty if the slot has no kernel of the plug-in.
std::string FormIn(const Tables& tables, const FormIndex* index, SuiteIndex suite,
                   const Line& line) {
  if (!line.isOpen || !line.slot->IsServed()) return {};
  const Routine live = tables.Live(suite, line.index);
  if (index && FormsOf(*index, suite, line.index).empty()) return {};
  const std::string form = index ? FormOf(*index, suite, line.index, live) : "";
  return form.empty() ? "form not told" : form;
}

// Escapes text for a cell of a Markdown table.
std::string InCell(const char* text) {
  std::string cell;
  for (; *text; ++text) cell += *text == '|' ? "\\|" : std::string(1, *text);
  return cell;
}

// Counts lines by state. Those with a closed gate count separately if only this processor matters.
struct Counts {
  int served = 0, passed = 0, closed = 0;

  void Add(const Line& line, bool isOpen) {
    ++(!isOpen ? closed : line.slot->IsServed() ? served : passed);
  }
};

}  // namespace

bool PrintSlots(const Tables& tables, const FormIndex* index) {
  bool isAsStated = true;
  Counts all;
  for (const SuiteEntry& suite : Catalog()) {
    const auto lines = LinesOf(suite);
    const auto written =
        std::count_if(lines.begin(), lines.end(), [](const Line& line) { return line.isOpen; });
    std::printf("\n%s version %d: %zu entries, %td written by the plug-in\n", suite.name,
                kSuiteFormats[suite.index].version, tables.EntryCount(suite.index), written);
    std::vector<bool> isExpected(tables.EntryCount(suite.index));
    for (const Line& line : lines) {
      isExpected[line.index] = line.isOpen;
      if (tables.IsChanged(suite.index, line.index)) all.Add(line, line.isOpen);
      std::printf("  %3d  %-12s %-14s  %-8s  %s\n", line.index, line.gates.c_str(),
                  line.isOpen ? StateOf(*line.slot) : "host's own",
                  FormIn(tables, index, suite.index, line).c_str(), line.slot->name);
    }
    for (size_t slot = 0; slot < isExpected.size(); ++slot) {
      const bool isChanged = tables.IsChanged(suite.index, static_cast<uint16_t>(slot));
      if (isChanged == isExpected[slot]) continue;
      isAsStated = false;
      std::printf("  %3zu  UNEXPECTED: %s\n", slot, isChanged ? "written" : "not written");
    }
  }
  std::printf("\n%d slots served, %d passed through to the host's own routines", all.served,
              all.passed);
  if (all.closed > 0)
    std::printf(", %d left as they were: this processor does not open their gate", all.closed);
  std::printf("\n");
  return isAsStated;
}

void PrintSlotPage(const FormIndex& index) {
  std::printf(
      "# Slots\n\n"
      "Every slot that the plug-in writes, by suite. The gate is the processor flag that must "
      "be set.\nA slot that is passed through jumps to the host's own routine with every "
      "argument as it came:\nits contract is the host's. The forms are those that the kernel "
      "has builds in, narrowest first:\nof those that a processor runs, the last stands in the "
      "slot. `vantrix-host slots` shows which.\nThis page is printed by `vantrix-host slots "
      "--page`; a test holds it to the tables.\n\n"
      "%s See NUMERICS.md.\n",
      kRuleWords);
  std::printf("\n| suite | version | served | passed through |\n|---|---|---|---|\n");
  Counts all;
  for (const SuiteEntry& suite : Catalog()) {
    Counts counts;
    for (const Line& line : LinesOf(suite)) counts.Add(line, true), all.Add(line, true);
    std::printf("| %s | %d | %d | %d |\n", suite.name, kSuiteFormats[suite.index].version,
                counts.served, counts.passed);
  }
  std::printf("| all | | %d | %d |\n", all.served, all.passed);
  for (const SuiteEntry& suite : Catalog()) {
    const auto lines = LinesOf(suite);
    if (lines.empty()) continue;
    std::printf(
        "\n## %s\n\n| slot | routine | gate | | forms | arguments | what it computes |\n"
        "|---|---|---|---|---|---|---|\n",
        suite.name);
    for (const Line& line : lines) {
      const bool isServed = line.slot->IsServed();
      std::printf("| %d | `%s` | %s | %s | %s | %s | %s |\n", line.index, line.slot->name,
                  line.gates.c_str(), StateOf(*line.slot),
                  isServed ? FormsOf(index, suite.index, line.index).c_str() : "",
                  isServed ? InCell(line.slot->arguments).c_str() : "",
                  isServed ? InCell(line.slot->rule).c_str() : "");
    }
  }
}

}  // namespace vantrix::host
