// What the demonstration shows of an operation: pictures, and the times of its slots.
#pragma once

#include <string>
#include <vector>

#include "host/demo/picture.h"
#include "host/tables.h"

namespace vantrix::host {

// Seconds that one piece of work took: by the ordinary routine, which does the same as the host's
// own and is written for a compiler to vectorise, and by the plug-in's.
struct Times {
  double byOrdinary = 0, byPlugin = 0;

  Times& operator+=(const Times& other) {
    byOrdinary += other.byOrdinary;
    byPlugin += other.byPlugin;
    return *this;
  }
};

// All runs of a slot together.
struct SlotRuns {
  SuiteIndex suite;
  uint16_t slot;
  std::string form;  // of the plug-in's routine; empty if unknown
  int count;         // of runs
  bool isSame;       // whether each result was that of the host's own routine
  Times times;
};

// Adds runs to those of the same slot, or appends them.
void AddRuns(const SlotRuns& runs, std::vector<SlotRuns>* all);

// A picture at the size at which the page shows it.
struct Figure {
  std::string caption;
  int width, height;  // of the original, in samples
  Picture picture;

  Figure(std::string words, const Picture& whole);
};

struct Exhibit {
  std::string title;
  std::string text;  // what to look for, in sentences
  std::vector<Figure> figures;
  bool isChange = false;  // the figures are a picture before, after, and the difference
  std::vector<SlotRuns> slots;
};

// `text` says what the exhibits of a section have in common.
struct Section {
  std::string title, text;
  std::vector<Exhibit> exhibits;
};

// Returns three figures: before, after, and the difference
// of each sample. Both pictures must have the same size.
std::vector<Figure> BeforeAndAfter(const Picture& before, const Picture& after);

}  // namespace vantrix::host
