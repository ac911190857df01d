#include "check/words.h"

#include <algorithm>
#include <string_view>

namespace vantrix::check {
namespace {

using host::Outcome;
using host::Place;

std::string Text(auto number) { return std::to_string(number); }

std::string WordsOf(const Place& at) {
  return "plane " + Text(at.plane) + ", row " + Text(at.row) + ", byte " + Text(at.column);
}

// Some bytes of a window from a place on.
std::string BytesFrom(const Outcome::Window& window, size_t index) {
  constexpr size_t kMost = 8;
  std::string text;
  for (size_t i = index; i < std::min(window.bytes.size(), index + kMost); ++i)
    text += (text.empty() ? "" : " ") + Text(window.bytes[i]);
  return text;
}

// What each plane held at a row and a column, as far as it reaches there.
std::string PlanesAt(const Outcome& before, const Place& at) {
  std::string text;
  for (size_t plane = 0; plane < before.windows.size(); ++plane) {
    const Outcome::Window& window = before.windows[plane];
    const ptrdiff_t index = window.first - window.start + at.row * window.stride + at.column;
    if (index < 0 || index >= static_cast<ptrdiff_t>(window.bytes.size())) continue;
    text += (text.empty() ? "plane " : "; plane ") + Text(plane) + ": " +
            BytesFrom(window, static_cast<size_t>(index));
  }
  return text;
}

// The first part of a list, which loses it.
std::string_view TakeFirst(std::string_view* list) {
  constexpr std::string_view kComma = ", ";
  const std::string_view first = list->substr(0, list->find(kComma));
  list->remove_prefix(std::min(list->size(), first.size() + kComma.size()));
  return first;
}

}  // namespace

std::string WordsOfArguments(const char* names, const Outcome& outcome) {
  std::string words;
  std::string_view name = names, value = outcome.arguments;
  while (!value.empty()) {
    words += words.empty() ? "Arguments: " : ", ";
    words += std::string(TakeFirst(&name)) + " ";
    words += TakeFirst(&value);
  }
  return words;
}

std::string WordsOfStray(const Outcome& before, const Outcome& hosts, const Outcome& ours) {
  for (size_t plane = 0; plane < before.windows.size(); ++plane)
    for (size_t i = 0; i < before.windows[plane].bytes.size(); ++i) {
      const uint8_t was = before.windows[plane].bytes[i];
      if (hosts.windows[plane].bytes[i] == was || ours.windows[plane].bytes[i] != was) continue;
      const Place at = PlaceOf(before, plane, i);
      if (at.isBeside)
        return "wrote beside its planes: " + WordsOf(at) + ", where the plane has " +
               Text(before.windows[plane].rows) + " rows of " +
               Text(before.windows[plane].rowBytes) + " bytes";
    }
  return {};
}

std::string WordsOfDifference(const Outcome& before, const Outcome& hosts, const Outcome& ours) {
  if (const auto at = FirstDifference(hosts, ours)) {
    const auto from = [&](const Outcome& outcome) {
      return BytesFrom(outcome.windows[at->plane], at->index);
    };
    return "Where: " + WordsOf(*at) + ". The host's result from there on: " + from(hosts) +
           ". Ours: " + from(ours) +
           ". The planes there before the call: " + PlanesAt(before, *at) + ".";
  }
  if (hosts.result != ours.result)
    return "Where: the value returned. The host's result: " + Text(hosts.result) +
           ". Ours: " + Text(ours.result) + ".";
  if (!ours.keptFloatControl) return "Ours left the floating-point control state changed.";
  return {};
}

}  // namespace vantrix::check
