#include "check/check.h"

#include <algorithm>
#include <map>

#include "check/decisions.h"
#include "check/report.h"
#include "check/trial.h"
#include "host/catalog.h"
#include "host/exercise/fault.h"
#include "host/forms.h"
#include "host/machine.h"
#include "host/paths.h"
#include "host/plugin_library.h"
#include "host/version.h"

namespace vantrix {

extern "C" const FormIndex vantrixFormIndex;

namespace check {
namespace {

constexpr char kSettled[] = "Settled slots";
constexpr char kDecided[] = "Slots about which something was decided here";
constexpr char kAboutDecided[] =
    "What hosts do here was not known to us. A difference says that the decision does not fit this "
    "host. They are tried last: a routine that is called with other arguments than its own may do "
    "anything.";

// Returns the builds that run here. One routine in several forms is listed under the first form.
std::vector<NamedRoutine> BuildsOf(SuiteIndex suite, uint16_t slot) {
  std::vector<NamedRoutine> builds;
  for (int32_t form = 0; form < vantrixFormIndex.count; ++form) {
    if (!vantrixFormIndex.runs(form)) continue;
    const Routine build = vantrixFormIndex.build(kSuiteFormats[suite].code, slot, form);
    const auto isBuild = [=](const NamedRoutine& other) { return other.routine == build; };
    if (build && std::ranges::none_of(builds, isBuild))
      builds.push_back({vantrixFormIndex.names[form], build});
  }
  return builds;
}

std::string WhyNotTried(const HostTables& tables, SuiteIndex suite, uint16_t slot, bool isOpen) {
  const Routine hosts = tables.At(suite, slot);
  if (!isOpen) return "as this processor does not open the slot's gate";
  if (!hosts) return "as the host has no routine there";
  if (host::LiesInPlugin(hosts)) return "as a plug-in's routine stands there, not the host's own";
  if (suite == kPath && tables.DebugsPaths())
    return "as the host debugs paths, and would report arrays that have no guard words";
  return {};
}

Candidate CandidateOf(const HostTables& tables, const host::SuiteEntry& suite, const Slot& slot) {
  const host::Reference* const reference = FindReference(suite, slot.index);
  Candidate candidate{
      .name = std::string(suite.name) + ":" + std::to_string(slot.index),
      .routine = slot.name,
      .arguments = slot.arguments,
      .isBoolean = suite.index == kMemory && (slot.index == 17 || slot.index == 18),
      .exercise = reference ? reference->exercise : nullptr,
      .hosts = tables.At(suite.index, slot.index),
      .forms = BuildsOf(suite.index, slot.index),
      .decision = DecisionAbout(suite.index, slot.index),
      .notTried = {},
  };
  const bool isOpen = std::ranges::any_of(suite.slots, [&](const Slot& line) {
    return line.index == slot.index && host::ProcessorOpens(line.gate);
  });
  candidate.notTried = reference ? WhyNotTried(tables, suite.index, slot.index, isOpen)
                                 : "as the plug-in hands all calls on to the host's own routine";
  return candidate;
}

// Returns the candidates by suite and slot. If a slot has two lines, either one will do.
std::vector<Candidate> Candidates(const HostTables& tables) {
  std::vector<Candidate> candidates;
  for (const host::SuiteEntry& suite : host::Catalog()) {
    std::map<uint16_t, const Slot*> served;
    for (const Slot& slot : suite.slots)
      if (slot.IsServed()) served[slot.index] = &slot;
    for (const auto& [index, slot] : served)
      candidates.push_back(CandidateOf(tables, suite, *slot));
  }
  return candidates;
}

Facts FactsOf(const HostTables& tables, const Options& options) {
  Facts facts{{"Version", host::Version()},
              {"Processor", host::ProcessorName()},
              {"Forms that it runs", host::RunningForms(vantrixFormIndex)},
              {"Host", host::TextOf(host::ThisProgram())},
              {"Scenes", std::to_string(options.scenes) + " a slot, each in every form"}};
  std::string suites;
  for (const host::SuiteEntry& suite : host::Catalog()) {
    const SuiteRecord& record = tables.Record(suite.index);
    suites += (suites.empty() ? "" : "; ") + std::string(suite.name) + " version " +
              std::to_string(record.suiteVersion) + ", count " + std::to_string(record.suiteCount);
  }
  facts.push_back({"Tables", suites});
  return facts;
}

}  // namespace

std::string Check(const HostTables& tables, const Options& options) {
  std::optional<Report> report = Report::In(options.folders);
  if (!report) {
    std::string folders;
    for (const std::filesystem::path& folder : options.folders)
      folders += (folders.empty() ? "" : " or ") + host::TextOf(folder);
    return "Vantrix check: nothing was tried, as no report can be written in " + folders;
  }
  GiveKernels(tables);
  report->Begin(FactsOf(tables, options));

  const std::vector<Candidate> candidates = Candidates(tables);
  const host::FaultWatch watch;
  Trials trials(options.scenes, options.limit);
  Counts counts;
  const auto tryGroup = [&](const char* title, const char* about, bool isDecided) {
    report->BeginGroup(title, about);
    for (const Candidate& candidate : candidates) {
      if ((candidate.decision != nullptr) != isDecided) continue;
      report->Name(candidate);
      const Verdict verdict = trials.Try(candidate);
      report->Settle(candidate, verdict);
      counts.Add(verdict.kind);
    }
    report->EndGroup();
  };
  tryGroup(kSettled, "", false);
  tryGroup(kDecided, kAboutDecided, true);
  const int halted = trials.HaltedThreads();
  report->End(counts, halted == 0 ? ""
                                  : std::to_string(halted) +
                                        " of the check's threads stand still in routines that did "
                                        "not return, until the process ends.");

  const std::string paths =
      host::TextOf(report->TextPath()) + " and " + host::TextOf(report->PagePath());
  if (!report->IsGood()) return "Vantrix check: the report could not be written whole: " + paths;
  return "Vantrix check: " + counts.Words() + "; the report is in " + paths;
}

}  // namespace check
}  // namespace vantrix
