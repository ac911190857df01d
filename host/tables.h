// The host's routine tables and the parameter block that lists them.
#pragma once

#include <array>
#include <vector>

#include "host/catalog.h"
#include "plugin/base/interface.h"

namespace vantrix::host {

class Tables {
 public:
  // All ten suites with the host's defaults: the reference of each settled slot, the core services,
  // and in every other entry a routine that records its calls.
  Tables();

  const SuiteParameterBlock* Block() const {
    return reinterpret_cast<const SuiteParameterBlock*>(&block_);
  }

  Routine Default(SuiteIndex suite, uint16_t slot) const { return defaults_[suite][slot]; }
  Routine Live(SuiteIndex suite, uint16_t slot) const { return live_[suite][slot]; }
  bool IsChanged(SuiteIndex suite, uint16_t slot) const {
    return Default(suite, slot) != Live(suite, slot);
  }
  size_t EntryCount(SuiteIndex suite) const { return live_[suite].size(); }

 private:
  struct {
    SuiteParameterBlock head;
    SuiteRecord records[kSuiteCount];
  } block_;
  std::array<std::vector<Routine>, kSuiteCount> defaults_, live_;
};

}  // namespace vantrix::host
