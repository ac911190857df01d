// What a call received and what it left, and how two calls differ, in words.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

namespace vantrix::host {

// An argument as a routine received it: a number, or the start of a plane or a list.
struct Argument {
  int64_t number = 0;
  const uint8_t* place = nullptr;  // null for a number
  bool isWritten = false;          // whether the routine may write there
  int sampleBytes = 0;
  std::string (*sampleText)(const uint8_t* sample) = nullptr;
};

std::string SampleText(float sample);

template <class T>
Argument ArgumentOf(T value) {
  if constexpr (std::is_pointer_v<T>) {
    using Pointed = std::remove_pointer_t<T>;
    // A record is shown as its 32-bit words.
    using Sample =
        std::conditional_t<std::is_arithmetic_v<Pointed>, std::remove_const_t<Pointed>, uint32_t>;
    return {0, reinterpret_cast<const uint8_t*>(value), !std::is_const_v<Pointed>, sizeof(Sample),
            [](const uint8_t* at) {
              Sample sample;
              std::memcpy(&sample, at, sizeof sample);
              if constexpr (std::is_same_v<Sample, float>)
                return SampleText(sample);
              else
                return std::to_string(sample);
            }};
  } else {
    return {static_cast<int64_t>(value)};
  }
}

struct Outcome {
  // The memory of a plane, and some on each side of it.
  struct Window {
    const uint8_t* start;
    int32_t rows, stride, rowBytes;
    const uint8_t* first;                // of the first row
    std::vector<uint8_t> before, after;  // the call; `before` only if inputs are kept

    bool Holds(const uint8_t* place) const {
      return place >= start && place < start + after.size();
    }
  };
  std::vector<Window> windows;
  std::vector<Argument> arguments;
  uint64_t result = 0;
  bool keptFloatControl = true;
  bool hasOverlap = false;  // planes share memory, but are not one plane
};

bool AreSame(const Outcome& expected, const Outcome& actual);

// The names of the two results in a difference.
struct Sides {
  const char *expected = "expected", *actual = "got";
};
// Describes the first difference of two outcomes in lines of text: the samples, the arguments, and
// what every plane held there before. `inputs` is the outcome of a call that kept its inputs.
// `names` are the names of the arguments, separated by ", ".
std::string Difference(const Outcome& expected, const Outcome& actual, const Outcome& inputs,
                       const std::string& names, Sides sides = {});

// Returns the arguments of a call in words.
std::string ArgumentsText(const Outcome& outcome, const std::string& names);

}  // namespace vantrix::host
