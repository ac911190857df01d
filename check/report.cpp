#include "check/report.h"

#include "check/page.h"

namespace vantrix::check {
namespace {

constexpr char kTitle[] = "Vantrix check";
constexpr char kAbout[] =
    "Each slot that the plug-in serves, the host's own routine beside the plug-in's kernels. A "
    "slot "
    "is named before it is tried. Where nothing follows its name, the process ended there.";

}  // namespace

std::string Counts::Words() const {
  using enum Verdict::Kind;
  std::string words;
  int all = 0;
  for (const Verdict::Kind kind : {kEqual, kDifferent, kFaulted, kNotTried}) {
    words += (words.empty() ? "" : ", ") + std::to_string(Of(kind)) + " " + NameOf(kind);
    all += Of(kind);
  }
  return std::to_string(all) + " slots: " + words;
}

std::optional<Report> Report::In(std::span<const std::filesystem::path> folders) {
  for (const std::filesystem::path& folder : folders) {
    KeptFile text(folder / "VantrixCheck.txt"), page(folder / "VantrixCheck.html");
    if (text.IsGood() && page.IsGood()) return Report(std::move(text), std::move(page));
    if (text.IsGood()) text.Remove();
  }
  return {};
}

void Report::Begin(const Facts& facts) {
  std::string text = std::string(kTitle) + "\n\n" + kAbout + "\n\n";
  for (const auto& [name, fact] : facts) text.append(name).append(": ").append(fact).append("\n");
  text_.Append(text);
  page_.Append(page::Head(kTitle, kAbout, facts));
}

void Report::BeginGroup(const std::string& title, const std::string& about) {
  text_.Append("\n" + title + "\n" + (about.empty() ? "" : about + "\n") + "\n");
  page_.Append(page::GroupStart(title, about));
}

void Report::Name(const Candidate& candidate) {
  page_.Append(page::RowStart(candidate));
  text_.Append(candidate.name + " " + candidate.routine + ": ");
  Keep();
}

void Report::Settle(const Candidate& candidate, const Verdict& verdict) {
  std::string text = std::string(NameOf(verdict.kind)) + " " + verdict.words;
  if (verdict.kind != Verdict::Kind::kEqual && candidate.decision)
    text += std::string("\n    Decided here: ") + candidate.decision;
  text_.Append(text + "\n");
  page_.Append(page::RowEnd(candidate, verdict));
}

void Report::EndGroup() { page_.Append(page::GroupEnd()); }

void Report::End(const Counts& counts, const std::string& more) {
  text_.Append("\n" + counts.Words() + ".\n" + (more.empty() ? "" : more + "\n") +
               "The check came to its end.\n");
  page_.Append(page::Foot(counts.Words() + ".", more));
  Keep();
}

void Report::Keep() {
  text_.Keep();
  page_.Keep();
}

}  // namespace vantrix::check
