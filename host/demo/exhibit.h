// What the demonstration shows of an operation: pictures, and what its slots took.
#pragma once

#include <string>
#include <vector>

#include "host/demo/picture.h"
#include "host/tables.h"

namespace vantrix::host {

// Seconds that one piece of work took: by the ordinary routine, which does the same as the host's
// own and is written for a compiler to make vectors of, and by the plug-in's.
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
  std::string form;  // of the plug-in's routine; empty where it is not told
  int count;         // of runs
  bool isSame;       // whether each gave what the host's own routine gave
  Times times;
};

// Adds to the runs of the same slot, or begins with them.
void AddRuns(const SlotRuns& runs, std::vector<SlotRuns>* all);

// A picture as large as the page shows it.
struct Figure {
  std::string caption;
  int width, height;  // of what it was made from, in samples
  Picture picture;

  Figure(std::string words, const Picture& whole);
};

struct Exhibit {
  std::string title;
  std::string text;  // what to look for, in sentences
  std::vector<Figure> figures;
  bool isChange = false;  // the figures are one picture before, after, and what differs
  std::vector<SlotRuns> slots;
};

// `text` tells what the exhibits of a section have in common.
struct Section {
  std::string title, text;
  std::vector<Exhibit> exhibits;
};

// Before, after, and how far each sample of them lies from the other. Of the same size.
std::vector<Figure> BeforeAndAfter(const Picture& before, const Picture& after);

}  // namespace vantrix::host
