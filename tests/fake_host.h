// A host that a test makes up: tables of markers, and a block of any records.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "plugin/base/interface.h"

namespace vantrix {

class FakeHost {
 public:
  // Ten suites in the order of acquisition, each reporting its saved entries as its count. Every
  // entry except the core services is an address of its own that nothing may call.
  FakeHost();

  // Tests may change these before a start-up; Block() lists them as they are then.
  std::vector<SuiteRecord> records;
  const SuiteParameterBlock* Block();

  Routine Original(SuiteIndex suite, size_t slot) const { return originals_[suite][slot]; }
  std::vector<Routine>& Live(SuiteIndex suite) { return live_[suite]; }
  std::vector<int> ChangedSlots(SuiteIndex suite) const;
  bool IsUntouched() const;

  // What the capability query was asked, and what it
  // answers: by selector, a result and what it writes.
  struct Query {
    uint32_t signature, selector;
    // When it was asked: suites with changed slots, whether the shared tables were built, and the
    // floating-point control.
    int installedSuites;
    bool hasTables;
    uint32_t control;
  };
  std::vector<Query> queries;
  uint32_t suiteResult = 0;
  const SuiteRecord* suiteAnswer = nullptr;
  uint32_t debugResult = 1, guardResult = 1;
  uint64_t debugAnswer = 0, guardAnswer = 0;

  struct Report {
    std::string message, sourceFile;
    int32_t line, flag;
    friend bool operator==(const Report&, const Report&) = default;
  };
  std::vector<Report> reports;

  struct NoiseCall {
    uint8_t* base;
    uint32_t count, size;
  };
  std::vector<NoiseCall> noiseCalls;

 private:
  std::array<std::vector<Routine>, kSuiteCount> originals_, live_;
  std::vector<uint8_t> block_;
};

// Turns a function of any signature into an entry.
template <class Signature>
Routine AsRoutine(Signature* function) {
  return reinterpret_cast<Routine>(function);
}

}  // namespace vantrix
