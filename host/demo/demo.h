// The demonstration: a photograph run through the live tables.
#pragma once

#include <filesystem>

#include "host/demo/session.h"
#include "host/forms.h"

namespace vantrix::host {

// One line of the demonstration. To add an operation, write its function and add it
// to the list in demo.cpp.
struct Operation {
  const char* title;
  double share;  // of the whole time, roughly
  void (*run)(Session& session);
};

// The operations by area, each in a file of its own.
void DemonstrateMemory(Session& session);
void DemonstratePaths(Session& session);
void DemonstrateResampling(Session& session);
void DemonstrateVignette(Session& session);
void DemonstrateBlends(Session& session);
void DemonstrateFilters(Session& session);
void DemonstrateSelection(Session& session);
void DemonstrateDepths(Session& session);

// Returns a plane of weights: 255 in an ellipse around the middle, falling to 0 over a soft edge.
std::vector<uint8_t> VignetteMask(int width, int height);

struct DemoOptions {
  std::filesystem::path picture;  // a generated one if empty
  std::filesystem::path folder;   // for results; made if needed
};

// The name of the page for a browser.
inline constexpr char kPage[] = "report.html";

// Makes a folder for results, if needed. Returns false with
// the reason in *error if nothing can be written there.
bool MakeFolder(const std::filesystem::path& folder, std::string* error);

// Runs all operations; writes pictures, the page and report.txt into the folder, and prints the
// report. Returns false with the reason printed if something is wrong.
bool RunDemo(const Tables& tables, const FormIndex* index, const DemoOptions& options);

}  // namespace vantrix::host
