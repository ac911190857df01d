// The trial of one slot, in a thread of its own.
#pragma once

#include <chrono>
#include <memory>
#include <thread>

#include "check/verdict.h"

namespace vantrix::check {

// Compares one slot after another. A routine that faults, writes outside its planes or does not
// return affects only its slot.
class Trials {
 public:
  // `limit` is the longest time that a call may take. A
  // longer call is noticed within twice that time.
  Trials(int scenes, std::chrono::milliseconds limit) : scenes_(scenes), limit_(limit) {}

  // Runs the scenes with the host's routine and with each form.
  Verdict Try(const Candidate& candidate);

  // Returns how many threads were abandoned in routines that did not return.
  int HaltedThreads() const { return halted_; }

 private:
  struct Trial;
  Verdict TryInThread(const Candidate& candidate);
  // Stops the thread of a trial in a routine that does not return.
  Verdict Abandon(const Trial& trial, std::thread* thread);

  int scenes_;
  std::chrono::milliseconds limit_;
  // The planes of the last trial, if its thread has ended.
  std::shared_ptr<host::Arena> arena_;
  int halted_ = 0;
};

}  // namespace vantrix::check
