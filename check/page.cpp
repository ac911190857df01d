#include "check/page.h"

#include "host/html.h"

namespace vantrix::check::page {
namespace {

using host::Escaped;

constexpr char kStyle[] = R"(
:root { color-scheme: light dark; --ink: #1d2127; --soft: #5b636e; --ground: #fbfbfa; --line: #d9dce0;
  --equal: #1a7340; --different: #a34a00; --faulted: #b3261e; --not-tried: #5b636e; }
@media (prefers-color-scheme: dark) { :root { --ink: #e4e6e9; --soft: #9aa2ad; --ground: #16181b;
  --line: #33383f; --equal: #6fcf97; --different: #f2a65a; --faulted: #f28b82; --not-tried: #9aa2ad; } }
* { box-sizing: border-box; }
body { margin: 0; background: var(--ground); color: var(--ink); font: 16px/1.5 system-ui, sans-serif; }
main { display: flex; flex-direction: column; max-width: 70rem; margin: 0 auto; padding: 1.5rem; }
header { order: -2; }
#outcome { order: -1; font-size: 1.15rem; }
section { overflow-x: auto; }
h1, h2 { line-height: 1.2; margin: 1.5rem 0 .5rem; }
dl { display: grid; grid-template-columns: max-content 1fr; gap: .15rem 1rem; }
dt, .soft { color: var(--soft); }
dd { margin: 0; overflow-wrap: anywhere; }
table { border-collapse: collapse; width: 100%; }
th { text-align: left; font-weight: 600; }
th, td { padding: .35rem .75rem .35rem 0; border-bottom: 1px solid var(--line); vertical-align: top; }
td:last-child { white-space: pre-line; }
td:first-child, td:nth-child(2) { white-space: nowrap; font-family: ui-monospace, monospace; font-size: .875rem; }
b.equal { color: var(--equal); } b.different { color: var(--different); }
b.faulted { color: var(--faulted); } b.not-tried { color: var(--not-tried); }
.trying:not(:last-child) { display: none; }
)";

std::string Element(const std::string& name, const std::string& text) {
  return text.empty() ? "" : "<" + name + ">" + Escaped(text) + "</" + name + ">\n";
}

std::string ClassOf(Verdict::Kind kind) {
  return kind == Verdict::Kind::kNotTried ? "not-tried" : NameOf(kind);
}

}  // namespace

std::string Head(const std::string& title, const std::string& about, const Facts& facts) {
  std::string head = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n" +
                     Element("title", title) +
                     "<meta name=\"viewport\" content=\"width=device-width\">\n<style>" + kStyle +
                     "</style>\n</head>\n<body>\n<main>\n<header>\n" + Element("h1", title) +
                     Element("p", about) + "<dl>\n";
  for (const auto& [name, fact] : facts) head += Element("dt", name) + Element("dd", fact);
  return head + "</dl>\n</header>\n";
}

std::string GroupStart(const std::string& title, const std::string& about) {
  return "<section>\n" + Element("h2", title) + Element("p", about) +
         "<table>\n<thead><tr><th>Slot</th><th>Routine</th><th>Outcome</th></tr></"
         "thead>\n<tbody>\n";
}

std::string RowStart(const Candidate& candidate) {
  return "<tr>" + Element("td", candidate.name) + Element("td", candidate.routine) +
         "<td class=\"trying\">The process ended while this slot was tried.</td>\n";
}

std::string RowEnd(const Candidate& candidate, const Verdict& verdict) {
  std::string cell = "<td><b class=\"" + ClassOf(verdict.kind) + "\">" + NameOf(verdict.kind) +
                     "</b> " + Escaped(verdict.words);
  if (candidate.decision)
    cell += "<div class=\"soft\">Decided here: " + Escaped(candidate.decision) + "</div>";
  return cell + "</td></tr>\n";
}

std::string GroupEnd() { return "</tbody>\n</table>\n</section>\n"; }

std::string Foot(const std::string& counts, const std::string& more) {
  return "<section id=\"outcome\">\n" + Element("p", counts) + Element("p", more) +
         "</section>\n</main>\n</body>\n</html>\n";
}

}  // namespace vantrix::check::page
