#include "host/bench/table.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "host/bench/ticks.h"
#include "host/version.h"

namespace vantrix::host {
namespace {

// Returns a number with three significant digits or more, but at most four decimals.
std::string Number(double value, const char* unit) {
  const int decimals = value < 0.1 ? 4 : value < 1 ? 3 : value < 10 ? 2 : value < 100 ? 1 : 0;
  char text[64];
  std::snprintf(text, sizeof text, "%.*f%s", decimals, value, unit);
  return text;
}

// Returns a text aligned to the right in `columns` columns.
std::string Right(const std::string& text, size_t columns) {
  return std::string(columns - std::min(columns, text.size()), ' ') + text;
}

std::string BarOf(const Figures& ticks) {
  constexpr int kCells = 21;
  const double most = std::max({ticks.plugin, ticks.ordinary, ticks.own});
  const auto cells = [=](double value) {
    return std::max(1, static_cast<int>(std::lround(kCells * value / most)));
  };
  std::string bar;
  int end = 0;
  const auto reach = [&](double value, const char* cell) {
    for (; end < cells(value); ++end) bar += cell;
  };
  reach(ticks.plugin, "█");
  reach(ticks.ordinary, "▒");
  reach(ticks.own, "░");
  return bar;
}

// The geometric mean, the least and the greatest of ratios.
struct Sum {
  double logarithms = 0, least = INFINITY, most = 0;
  int count = 0;

  void Add(double ratio) {
    logarithms += std::log(ratio);
    least = std::min(least, ratio), most = std::max(most, ratio);
    ++count;
  }
  std::string Text() const {
    return Right(Number(std::exp(logarithms / count), "x"), 9) + Right(Number(least, "x"), 8) +
           Right(Number(most, "x"), 8);
  }
};

struct Sums {
  Sum ordinary, own;

  void Add(const Figures& ticks) {
    ordinary.Add(ticks.ordinary / ticks.plugin);
    own.Add(ticks.own / ticks.plugin);
  }
  std::string Row(const std::string& name) const {
    if (own.count == 0) return {};
    return name + std::string(18 - name.size(), ' ') + Right(std::to_string(own.count), 6) +
           ordinary.Text() + ' ' + own.Text() + '\n';
  }
};

// Returns the sums of the lines that `test` accepts, those of planes and of short rows separately.
template <class Test>
std::string RowsOf(const std::string& name, const std::vector<Line>& lines, Test test) {
  Sums planes, shortRows;
  for (const Line& line : lines)
    if (test(line)) (line.isShortRows ? shortRows : planes).Add(line.ticks);
  return planes.Row(name + " planes") + shortRows.Row(name + " short rows");
}

}  // namespace

std::string HeadOfTable() {
  char counter[80];
  std::snprintf(counter, sizeof counter, "%.0f million ticks a second", TicksPerSecond() * 1e-6);
  return std::string("compiler of the ordinary and the host's own routines\n  ") + Compiler() +
         ", -O3, for any x64 processor\ntime-stamp counter\n  " + counter +
         ", whatever the clock of the cores\n\n"
         "Figures are for a sample. Each line is for one size, of the largest plane or in\n"
         "rows x samples. Planes of 4 KiB stay in the first-level cache, of 64 KiB in the\n"
         "second; those of 1 MiB come from memory, put out of the caches before each call.\n"
         "Samples go up and down in small steps, as in pictures; masks are discs.\n"
         "The ordinary routine is written for a compiler to make vectors of. Where there\n"
         "is none besides, it is the host's own. Below 1x the plug-in takes longer.\n"
         "Bars are times: █ the plug-in's, ▒ on to the ordinary's, ░ on to the host's own.\n\n"
         "            ticks      nanoseconds          quicker than\n"
         "          plug-in plug-in ordinary    own ordinary    own\n";
}

std::string TextOf(const Line& line) {
  const double nanoseconds = 1e9 / TicksPerSecond();
  const Figures& t = line.ticks;
  const auto time = [=](double ticks) { return Number(ticks * nanoseconds, ""); };
  return "  " + line.size + std::string(8 - line.size.size(), ' ') +
         Right(Number(t.plugin, ""), 7) + Right(time(t.plugin), 8) + Right(time(t.ordinary), 9) +
         Right(time(t.own), 7) + Right(Number(t.ordinary / t.plugin, "x"), 9) +
         Right(Number(t.own / t.plugin, "x"), 7) + ' ' + BarOf(t) + '\n';
}

std::string SumsOf(const std::vector<Line>& lines) {
  std::string text =
      "\nquicker than               the ordinary routine        the host's own routine\n"
      "                   lines     mean   least    most      mean   least    most\n";
  for (const SuiteEntry& suite : Catalog())
    text += RowsOf(suite.name, lines, [&](const Line& line) { return line.suite == suite.index; });
  return text + RowsOf("all", lines, [](const Line&) { return true; });
}

}  // namespace vantrix::host
