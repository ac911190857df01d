#include "host/demo/page.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "host/html.h"
#include "page_parts.h"

namespace vantrix::host {
namespace {

std::string Element(const std::string& start, const std::string& content) {
  return '<' + start + '>' + content + "</" + start.substr(0, start.find(' ')) + '>';
}
std::string Paragraph(const std::string& text) {
  return text.empty() ? "" : Element("p", Escaped(text));
}

// Returns a time with three significant digits, in a suitable unit.
std::string TimeText(double seconds) {
  const struct {
    double size;
    const char* name;
  } units[] = {{1, "s"}, {1e-3, "ms"}, {1e-6, "\u00b5s"}};
  const auto& unit = units[seconds >= 1 ? 0 : seconds >= 1e-3 ? 1 : 2];
  const double value = seconds / unit.size;
  char text[32];
  std::snprintf(text, sizeof text, "%.*f %s",
                value < 10    ? 2
                : value < 100 ? 1
                              : 0,
                value, unit.name);
  return text;
}
std::string RatioText(const Times& times) {
  const double ratio = times.byOrdinary / times.byPlugin;
  char text[32];
  std::snprintf(text, sizeof text, ratio < 2 ? "%.2f" : ratio < 10 ? "%.1f" : "%.0f", ratio);
  return text;
}

// Returns how many times as large a small picture is drawn, so that its samples can be seen.
int GrowthOf(const Picture& picture) {
  constexpr int kWidth = 320, kHeight = 240, kMost = 32;
  return std::clamp(std::min(kWidth / picture.width, kHeight / picture.height), 1, kMost);
}

std::string Image(const Figure& figure) {
  const Picture& picture = figure.picture;
  const int growth = GrowthOf(picture);
  const auto attribute = [](const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + value + '"';
  };
  return "<img" + (growth > 1 ? attribute("class", "grown") : "") +
         attribute("width", std::to_string(picture.width * growth)) +
         attribute("height", std::to_string(picture.height * growth)) +
         attribute("style", "max-width:" + std::to_string(picture.width * growth) + "px") +
         attribute("alt", Escaped(figure.caption)) + attribute("src", DataUrl(picture)) + '>';
}

std::string FigureElement(const Figure& figure, const std::string& kind, bool hasSize) {
  std::string caption = figure.caption;
  if (hasSize)
    caption +=
        " (" + std::to_string(figure.width) + " \u00d7 " + std::to_string(figure.height) + ")";
  return Element(kind.empty() ? "figure" : "figure class=\"" + kind + '"',
                 Image(figure) + Element("figcaption", Escaped(caption)));
}

// Whether pictures are so broad that they are shown below one another.
bool IsBroad(const Exhibit& exhibit) {
  const Picture& picture = exhibit.figures[0].picture;
  return picture.width > 3 * picture.height;
}
// Whether an exhibit takes the page's whole width.
bool IsWide(const Exhibit& exhibit) { return exhibit.figures.size() > 2 && !exhibit.isChange; }

std::string Figures(const Exhibit& exhibit) {
  const auto& figures = exhibit.figures;
  std::string content;
  if (exhibit.isChange) {
    const Picture& picture = figures[0].picture;
    const std::string width = std::to_string(picture.width * GrowthOf(picture));
    content = Element("div class=\"pair\" style=\"--cut:50%;max-width:" + width + "px\"",
                      FigureElement(figures[0], "before", false) +
                          FigureElement(figures[1], "after", false)) +
              FigureElement(figures[2], "", false);
  } else {
    const bool areOfOneSize = std::ranges::all_of(figures, [&](const Figure& figure) {
      return figure.width == figures[0].width && figure.height == figures[0].height;
    });
    for (const Figure& figure : figures) content += FigureElement(figure, "", !areOfOneSize);
  }
  const size_t columns = IsBroad(exhibit)   ? 1 + IsWide(exhibit)
                         : exhibit.isChange ? 2
                                            : figures.size();
  return Element("div class=\"figures" + std::string(columns > 3 ? " several" : "") +
                     "\" style=\"--columns:" + std::to_string(columns) + '"',
                 content);
}

std::string Bar(const char* kind, const std::string& label, double seconds, double longest) {
  char part[32];
  std::snprintf(part, sizeof part, "%.4f", seconds / longest);
  return Element("span", Escaped(label)) +
         Element("span",
                 Element(std::string("div class=\"bar ") + kind + "\" style=\"--part:" + part + '"',
                         "")) +
         Element("span class=\"time\"", TimeText(seconds));
}

std::string WithForm(const SlotRuns& runs) {
  return runs.form.empty() ? "plug-in" : "plug-in, " + runs.form;
}

std::string ResultText(const SlotRuns& runs) {
  return runs.isSame ? "the same result" : Element("span class=\"bad-result\"", "ANOTHER RESULT");
}

std::string SlotElement(const SlotRuns& runs) {
  const SuiteEntry& suite = Catalog()[runs.suite];
  const Slot* const slot = FindSlot(suite, runs.slot);
  const double longest = std::max(runs.times.byOrdinary, runs.times.byPlugin);
  const std::string place = std::string(suite.name) + ' ' + std::to_string(runs.slot);
  std::string content = Element("p", Element("code class=\"name\"", slot ? slot->name : "") + ' ' +
                                         Element("span class=\"where\"", place) +
                                         (slot && slot->rule ? ": " + Escaped(slot->rule) : ""));
  content += Element("div class=\"bars\"",
                     Bar("", "ordinary", runs.times.byOrdinary, longest) +
                         Bar("plugin", WithForm(runs), runs.times.byPlugin, longest));
  content += Element("div class=\"faster\"",
                     RatioText(runs.times) + " times as fast; " + ResultText(runs));
  return Element("div class=\"slot\"", content);
}

std::string ExhibitElement(const Exhibit& exhibit) {
  std::string content = Element("h3", Escaped(exhibit.title)) + Paragraph(exhibit.text);
  content += Figures(exhibit);
  for (const SlotRuns& runs : exhibit.slots) content += SlotElement(runs);
  return Element(std::string("article class=\"exhibit") + (IsWide(exhibit) ? " wide\"" : "\""),
                 content) +
         '\n';
}

std::string IdOf(size_t section) { return "s" + std::to_string(section + 1); }

std::string Verdict(const std::vector<SlotRuns>& all) {
  const auto wrong = std::ranges::count_if(all, [](const SlotRuns& runs) { return !runs.isSame; });
  int count = 0;
  for (const SlotRuns& runs : all) count += runs.count;
  const std::string compared =
      std::to_string(all.size()) + " slots were tried in " + std::to_string(count) +
      " pieces of work. The host's own routine and the plug-in's did each piece from the same "
      "memory; their results were compared bit for bit.";
  const std::string words =
      wrong == 0 ? "\u2713 Every result is the host's own, bit for bit."
                 : "\u2717 " + std::to_string(wrong) + " of " + std::to_string(all.size()) +
                       " slots gave another result than the host's own routine.";
  return Element(std::string("p class=\"verdict ") + (wrong == 0 ? "good\"" : "bad\""),
                 words + Element("span", compared));
}

std::string HowToRead() {
  return Element("h2 id=\"read\"", "How to read this page") +
         "<p>Drag the line over a picture, or choose it with the Tab key and press the arrow "
         "keys: left of the line is the picture before, right of it the picture after. In a "
         "picture of differences black is what did not change, and a sample is as bright as it "
         "changed.</p>"
         "<p><span class=\"key\"></span> is the time of an ordinary routine: one that does the "
         "same, written for a compiler to make vectors of, which it did in registers of 16 bytes, "
         "where it could. <span class=\"key plugin\"></span> is the time of the plug-in's routine, "
         "in the form that stands in the slot on this processor. Each is the best of several "
         "turns; "
         "where a slot did several pieces of work the times are added. Results are not compared "
         "with "
         "the ordinary routine's, but with those of the host's own.</p>" +
         Element("p", Escaped(kRuleWords));
}

std::string TimesTable(const std::vector<SlotRuns>& all) {
  constexpr const char* kHeads[] = {"slot",    "routine",       "form",   "ordinary",
                                    "plug-in", "times as fast", "result", "what it computes"};
  std::string head, rows;
  for (const char* const name : kHeads) head += Element("th", name);
  for (const SlotRuns& runs : all) {
    const SuiteEntry& suite = Catalog()[runs.suite];
    const Slot* const slot = FindSlot(suite, runs.slot);
    const std::string cells[] = {std::string(suite.name) + ' ' + std::to_string(runs.slot),
                                 Element("code", slot ? slot->name : ""),
                                 Escaped(runs.form),
                                 TimeText(runs.times.byOrdinary),
                                 TimeText(runs.times.byPlugin),
                                 RatioText(runs.times),
                                 ResultText(runs),
                                 slot && slot->rule ? Escaped(slot->rule) : ""};
    std::string row;
    for (size_t i = 0; i < std::size(cells); ++i)
      row += Element("td data-name=\"" + std::string(kHeads[i]) + '"', cells[i]);
    rows += Element("tr", row) + '\n';
  }
  return Element("h2 id=\"times\"", "Every slot shown here") +
         Element("div class=\"scroll\" tabindex=\"0\"",
                 Element("table", Element("thead", Element("tr", head)) + Element("tbody", rows)));
}

}  // namespace

std::string Page(const std::vector<Fact>& facts, const std::vector<Section>& sections,
                 const std::vector<SlotRuns>& all) {
  std::string page =
      "<!doctype html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
      "<link rel=\"icon\" href=\"data:,\">\n<title>Vantrix: demonstration</title>\n<style>\n";
  page += kPageStyle;
  page += "</style>\n</head>\n<body>\n<h1>Vantrix: demonstration</h1>\n" + Verdict(all);
  std::string list;
  for (const auto& [name, value] : facts)
    list += Element("div", Element("dt", Escaped(name)) + Element("dd", Escaped(value)));
  page += Element("dl class=\"facts\"", list);
  std::string links;
  for (size_t i = 0; i < sections.size(); ++i)
    links += Element("a href=\"#" + IdOf(i) + '"', Escaped(sections[i].title));
  page += Element("nav", links + Element("a href=\"#times\"", "All slots")) + HowToRead();
  for (size_t i = 0; i < sections.size(); ++i) {
    page += Element("h2 id=\"" + IdOf(i) + '"', Escaped(sections[i].title)) +
            Paragraph(sections[i].text) + "\n<div class=\"exhibits\">\n";
    for (const Exhibit& exhibit : sections[i].exhibits) page += ExhibitElement(exhibit);
    page += "</div>\n";
  }
  page += TimesTable(all);
  page += "\n<script>\n";
  page += kPageScript;
  return page + "</script>\n</body>\n</html>\n";
}

}  // namespace vantrix::host
