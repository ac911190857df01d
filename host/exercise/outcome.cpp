#include "host/exercise/outcome.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace vantrix::host {
namespace {

constexpr char kNewLine[] = "\n       ";

// The position of a sample in a plane. In a list, which has no rows, the row is 0.
struct Position {
  ptrdiff_t row, sample;
};

// The arguments of a call with their names.
class NamedArguments {
 public:
  NamedArguments(const std::vector<Argument>& arguments, const std::string& names)
      : arguments_(arguments) {
    for (size_t start = 0; start < names.size();) {
      const size_t end = std::min(names.find(", ", start), names.size());
      names_.push_back(names.substr(start, end - start));
      start = end + 2;
    }
    for (size_t i = names_.size(); i < arguments.size(); ++i)
      names_.push_back("argument " + std::to_string(i + 1));
  }

  size_t Count() const { return arguments_.size(); }
  const Argument& operator[](size_t i) const { return arguments_[i]; }
  const std::string& Name(size_t i) const { return names_[i]; }

  // Returns the bytes from a row of a plane to the next; 0 for a list.
  ptrdiff_t StrideOf(size_t plane) const {
    const bool haveOwn = std::ranges::any_of(
        names_, [](const std::string& name) { return name.ends_with(" stride"); });
    const auto names = haveOwn ? std::vector{names_[plane] + " stride"}
                               : std::vector<std::string>{"stride", "row bytes"};
    for (const std::string& name : names) {
      const auto found = std::ranges::find(names_, name);
      if (found == names_.end()) continue;
      const int64_t stride = arguments_[static_cast<size_t>(found - names_.begin())].number;
      // A stride of wider samples is rounded down to whole samples.
      return static_cast<ptrdiff_t>(stride & -int64_t{arguments_[plane].sampleBytes});
    }
    return 0;
  }

  Position PositionOf(size_t plane, const uint8_t* place) const {
    const ptrdiff_t bytes = place - arguments_[plane].place, stride = StrideOf(plane);
    const ptrdiff_t size = std::abs(stride), sample = arguments_[plane].sampleBytes;
    if (size == 0) return {0, bytes / sample};
    // The row with the nearest start at or below the byte, whichever way the rows run.
    const ptrdiff_t below = bytes >= 0 ? bytes / size : -((size - 1 - bytes) / size);
    return {stride < 0 ? -below : below, (bytes - below * size) / sample};
  }
  const uint8_t* PlaceOf(size_t plane, Position at) const {
    return arguments_[plane].place + at.row * StrideOf(plane) +
           at.sample * arguments_[plane].sampleBytes;
  }

 private:
  const std::vector<Argument>& arguments_;
  std::vector<std::string> names_;
};

std::string PositionText(const NamedArguments& arguments, size_t plane, Position at) {
  const std::string row =
      arguments.StrideOf(plane) == 0 ? "" : "row " + std::to_string(at.row) + ", ";
  return arguments.Name(plane) + ", " + row + "sample " + std::to_string(at.sample);
}

// Writes large numbers in hexadecimal digits: they are narrow ones with anything above them.
std::string NumberText(int64_t number) {
  if (std::abs(number) <= 0xFFFFF) return std::to_string(number);
  const bool isWide = number != static_cast<int32_t>(number);
  char text[32];
  std::snprintf(text, sizeof text, "0x%llx",
                static_cast<unsigned long long>(isWide ? number : number & 0xFFFFFFFF));
  return text;
}

std::string ArgumentsText(const NamedArguments& arguments) {
  std::string text = "called with ";
  for (size_t i = 0; i < arguments.Count(); ++i) {
    text += (i == 0 ? "" : ", ") + arguments.Name(i) + ' ';
    if (!arguments[i].place) {
      text += NumberText(arguments[i].number);
      continue;
    }
    char address[32];
    std::snprintf(address, sizeof address, "at ..%03x",
                  static_cast<unsigned>(reinterpret_cast<uintptr_t>(arguments[i].place) & 0xFFF));
    text += address;
  }
  return text;
}

const Outcome::Window* WindowOf(const Outcome& outcome, const uint8_t* place) {
  for (const auto& window : outcome.windows)
    if (window.Holds(place)) return &window;
  return nullptr;
}

// Returns some samples of a plane around a position, whose
// sample is in brackets; none if the plane does not reach there.
std::string SamplesText(const NamedArguments& arguments, size_t plane, Position at,
                        const Outcome::Window& window) {
  constexpr ptrdiff_t kAbout = 4;
  const Argument& argument = arguments[plane];
  std::string samples;
  std::optional<ptrdiff_t> first;
  for (ptrdiff_t i = at.sample - kAbout; i <= at.sample + kAbout; ++i) {
    if (i < 0 && at.sample >= 0) continue;
    const uint8_t* const place = arguments.PlaceOf(plane, {at.row, i});
    if (!window.Holds(place) || !window.Holds(place + argument.sampleBytes - 1)) continue;
    if (!first) first = i;
    const std::string text =
        argument.sampleText(&window.before[static_cast<size_t>(place - window.start)]);
    samples += i == at.sample ? " [" + text + ']' : ' ' + text;
  }
  if (!first) return {};
  return PositionText(arguments, plane, {at.row, *first}) + " on:" + samples;
}

struct Differing {
  const uint8_t* place;
  size_t window;
  size_t index;  // in the window
};
std::optional<Differing> FirstDiffering(const Outcome& expected, const Outcome& actual) {
  for (size_t i = 0; i < expected.windows.size(); ++i) {
    const auto &want = expected.windows[i].after, &got = actual.windows[i].after;
    const auto differs = std::ranges::mismatch(want, got);
    if (differs.in1 == want.end()) continue;
    const auto index = static_cast<size_t>(differs.in1 - want.begin());
    return Differing{expected.windows[i].start + index, i, index};
  }
  return {};
}

// Returns the plane that a place belongs to. If there are
// several, prefers one that the routine may write.
std::optional<size_t> PlaneAt(const NamedArguments& arguments, const Outcome& inputs,
                              const uint8_t* place) {
  const Outcome::Window* const window = WindowOf(inputs, place);
  std::optional<size_t> plane;
  for (size_t i = 0; i < arguments.Count(); ++i)
    if (window && arguments[i].place && window->Holds(arguments[i].place) &&
        (!plane || (arguments[i].isWritten && !arguments[*plane].isWritten)))
      plane = i;
  return plane;
}

}  // namespace

std::string SampleText(float sample) {
  char text[32];
  std::snprintf(text, sizeof text, "%.9g", double{sample});
  return text;
}

bool AreSame(const Outcome& expected, const Outcome& actual) {
  return !FirstDiffering(expected, actual) && expected.result == actual.result &&
         actual.keptFloatControl;
}

std::string Difference(const Outcome& expected, const Outcome& actual, const Outcome& inputs,
                       const std::string& names, Sides sides) {
  const auto both = [&](const std::string& want, const std::string& got) {
    return std::string(": ") + sides.expected + ' ' + want + ", " + sides.actual + ' ' + got;
  };
  const NamedArguments arguments(inputs.arguments, names);
  std::string text;
  Position at{0, 0};
  if (const auto differing = FirstDiffering(expected, actual)) {
    const auto& want = expected.windows[differing->window];
    const auto& got = actual.windows[differing->window];
    const auto plane = PlaneAt(arguments, inputs, differing->place);
    std::string want_text = std::to_string(want.after[differing->index]);
    std::string got_text = std::to_string(got.after[differing->index]);
    if (plane) {
      at = arguments.PositionOf(*plane, differing->place);
      text = PositionText(arguments, *plane, at);
      const Argument& argument = arguments[*plane];
      const uint8_t* const place = arguments.PlaceOf(*plane, at);
      if (want.Holds(place) && want.Holds(place + argument.sampleBytes - 1)) {
        const auto index = static_cast<size_t>(place - want.start);
        want_text = argument.sampleText(&want.after[index]);
        got_text = argument.sampleText(&got.after[index]);
      }
    } else {
      text = "memory beside the planes";
    }
    text += both(want_text, got_text);
  } else if (expected.result != actual.result) {
    text = "result" + both(NumberText(static_cast<int64_t>(expected.result)),
                           NumberText(static_cast<int64_t>(actual.result)));
  } else {
    text = "the floating-point control state was left changed";
  }
  text += kNewLine + ArgumentsText(arguments);
  for (size_t i = 0; i < arguments.Count(); ++i) {
    if (!arguments[i].place) continue;
    const Outcome::Window* const window = WindowOf(inputs, arguments[i].place);
    if (!window || window->before.empty()) continue;
    const Position own{arguments.StrideOf(i) == 0 ? 0 : at.row, at.sample};
    std::string samples = SamplesText(arguments, i, own, *window);
    if (samples.empty()) samples = SamplesText(arguments, i, {0, 0}, *window);
    text += kNewLine + ("before: " + samples);
  }
  return text;
}

std::string ArgumentsText(const Outcome& outcome, const std::string& names) {
  return ArgumentsText(NamedArguments(outcome.arguments, names));
}

}  // namespace vantrix::host
