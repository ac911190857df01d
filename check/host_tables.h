// The host's tables, as the check reads them and our kernels use them.
#pragma once

#include <string>

#include "plugin/base/interface.h"

namespace vantrix::check {

// A host's parameter block. It must contain all ten suites.
class HostTables {
 public:
  explicit HostTables(const SuiteParameterBlock* block);

  const SuiteRecord& Record(SuiteIndex suite) const { return *records_[suite]; }
  Routine At(SuiteIndex suite, uint16_t slot) const { return Record(suite).routines[slot]; }

  // Whether the host debugs paths, so that fill arrays need guard words.
  bool DebugsPaths() const;
  void Say(const std::string& message) const;

 private:
  const SuiteRecord* records_[kSuiteCount];
};

// Makes our kernels call the host's routines from now on, except two services, which belong on the
// host's own threads: polls and reports go nowhere.
void GiveKernels(const HostTables& tables);

}  // namespace vantrix::check
