// The progress of long work, for a user who waits at a terminal.
#pragma once

#include <chrono>
#include <string>

namespace vantrix::host {

// Rewrites one line on standard error, at most once a second and not in the first second, with the
// time that is left. Writes nothing if standard error is not a terminal.
class Progress {
 public:
  Progress();
  ~Progress() { Clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // `part` is how much of the work is done, 0 to 1; `what` is what is being done.
  void Show(double part, const std::string& what);
  // Clears the line, so that something else may be printed.
  void Clear();

 private:
  using Clock = std::chrono::steady_clock;
  const bool isWatched_;
  const Clock::time_point start_ = Clock::now();
  Clock::time_point shown_ = start_;
  size_t length_ = 0;  // of the line that is shown
};

// Returns a rounded time in words: "40 s", "3 min".
std::string InWords(std::chrono::duration<double> time);

}  // namespace vantrix::host
