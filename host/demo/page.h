// The demonstration as a page for a browser: one file that needs nothing else.
#pragma once

#include <string>
#include <vector>

#include "host/demo/exhibit.h"

namespace vantrix::host {

// Something that a reader should know about the run.
struct Fact {
  std::string name, value;
};

std::string Page(const std::vector<Fact>& facts, const std::vector<Section>& sections,
                 const std::vector<SlotRuns>& all);

}  // namespace vantrix::host
