// The table of measurements.
#pragma once

#include <string>
#include <vector>

#include "host/catalog.h"

namespace vantrix::host {

// Ticks per sample.
struct Figures {
  double plugin, ordinary, own;
};

// One line of the table.
struct Line {
  SuiteIndex suite;
  std::string size;
  bool isShortRows;
  Figures ticks;
};

// Returns the head, which says what the columns and the bars are.
std::string HeadOfTable();

// Returns a line with its bar. The longest of the three times fills the width.
std::string TextOf(const Line& line);

// Returns how many times as fast the plug-in is in the
// lines of each suite: geometric mean, least, most.
std::string SumsOf(const std::vector<Line>& lines);

}  // namespace vantrix::host
