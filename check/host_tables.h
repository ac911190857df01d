// The host's tables, as the check reads them and our kernels find them.
#pragma once

#include <string>

#include "plugin/base/interface.h"

namespace vantrix::check {

// A host's parameter block in which all ten suites are found.
class HostTables {
 public:
  explicit HostTables(const SuiteParameterBlock* block);

  const SuiteRecord& Record(SuiteIndex suite) const { return *records_[suite]; }
  Routine At(SuiteIndex suite, uint16_t slot) const { return Record(suite).routines[slot]; }

  // Whether it debugs paths, so that fill arrays need guard words.
  bool DebugsPaths() const;
  void Say(const std::string& message) const;

 private:
  const SuiteRecord* records_[kSuiteCount];
};

// Our kernels reach the host's routines from now on, but for two services that are called on the
// host's own threads: they poll and report to nobody.
void GiveKernels(const HostTables& tables);

}  // namespace vantrix::check
