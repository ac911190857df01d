#include "host/progress.h"

#include <unistd.h>

#include <cmath>
#include <cstdio>

namespace vantrix::host {

Progress::Progress() : isWatched_(isatty(STDERR_FILENO) != 0) {}

void Progress::Show(double part, const std::string& what) {
  const auto now = Clock::now();
  if (!isWatched_ || now - shown_ < std::chrono::seconds(1)) return;
  shown_ = now;
  Clear();
  std::string line = "  " + what;
  if (part > 0 && part < 1) line += ", " + InWords((now - start_) * ((1 - part) / part)) + " left";
  std::fprintf(stderr, "%s\r", line.c_str());
  std::fflush(stderr);
  length_ = line.size();
}

void Progress::Clear() {
  if (length_ == 0) return;
  std::fprintf(stderr, "%*s\r", static_cast<int>(length_), "");
  std::fflush(stderr);
  length_ = 0;
}

std::string InWords(std::chrono::duration<double> time) {
  const double seconds = time.count();
  return seconds < 100 ? std::to_string(std::lround(seconds)) + " s"
                       : std::to_string(std::lround(seconds / 60)) + " min";
}

}  // namespace vantrix::host
