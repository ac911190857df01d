// What the measurements of slots look like.
#pragma once

#include <string>
#include <vector>

#include "host/catalog.h"

namespace vantrix::host {

// Ticks a sample.
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

// What the columns and the bars are.
std::string HeadOfTable();

// A line with its bar: the longest time of the three fills the width.
std::string TextOf(const Line& line);

// How many times as quick the plug-in is in the lines of each suite: geometric means, least, most.
std::string SumsOf(const std::vector<Line>& lines);

}  // namespace vantrix::host
