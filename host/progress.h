// How far long work has come, for a person who waits at a terminal.
#pragma once

#include <chrono>
#include <string>

namespace vantrix::host {

// One line on standard error, written over itself, once a second from the second second on, with
// the time that is left. Nothing where standard error is no terminal.
class Progress {
 public:
  Progress();
  ~Progress() { Clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // `part` of the work is done, 0 to 1; `what` is being done.
  void Show(double part, const std::string& what);
  // Takes the line away, so that something else may be printed.
  void Clear();

 private:
  using Clock = std::chrono::steady_clock;
  const bool isWatched_;
  const Clock::time_point start_ = Clock::now();
  Clock::time_point shown_ = start_;
  size_t length_ = 0;  // of the line that stands there
};

// About how long that is, in words: "40 s", "3 min".
std::string InWords(std::chrono::duration<double> time);

}  // namespace vantrix::host
