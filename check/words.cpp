#include "check/words.h"

#include <cstdlib>

namespace vantrix::check {
namespace {

using host::Outcome;

std::string Text(auto number) { return std::to_string(number); }

// A byte of a row, or one outside it.
struct Place {
  ptrdiff_t row, column;
};
Place PlaceOf(const Outcome::Window& window, size_t index) {
  const ptrdiff_t fromFirst = window.start + index - window.first;
  if (window.stride == 0) return {0, fromFirst};
  // The row with the nearest start at or below the byte, whichever way the rows run.
  const ptrdiff_t size = std::abs(window.stride);
  const ptrdiff_t below = fromFirst >= 0 ? fromFirst / size : -((-fromFirst + size - 1) / size);
  return {window.stride < 0 ? -below : below, fromFirst - below * size};
}

}  // namespace

std::string WordsOfStray(const Outcome& before, const Outcome& hosts, const Outcome& ours) {
  for (size_t plane = 0; plane < before.windows.size(); ++plane) {
    const Outcome::Window& window = before.windows[plane];
    for (size_t i = 0; i < window.after.size(); ++i) {
      const uint8_t was = window.after[i];
      if (hosts.windows[plane].after[i] == was || ours.windows[plane].after[i] != was) continue;
      const Place at = PlaceOf(window, i);
      if (at.row < 0 || at.row >= window.rows || at.column >= window.rowBytes)
        return "wrote beside its planes: plane " + Text(plane) + ", row " + Text(at.row) +
               ", byte " + Text(at.column) + ", where the plane has " + Text(window.rows) +
               " rows of " + Text(window.rowBytes) + " bytes";
    }
  }
  return {};
}

}  // namespace vantrix::check
