// The slot tables of the suites as plain data: which slots are ours, under which
// processor flag, and what each computes.
//
// The installers, the host, the tests and the documents all read these tables.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantrix {

enum class Gate : uint8_t { kAlways, kSSE, kSSE2, kSSE2OrSSSE3, kSSE41 };

// One line of a suite's slot table. A line without a rule is a slot whose contract belongs to the
// host alone: it is passed through.
struct Slot {
  uint16_t index;
  Gate gate;
  const char* name;
  const char* arguments = nullptr;  // in order
  const char* rule = nullptr;       // what it computes

  constexpr bool IsServed() const { return rule != nullptr; }
};

// For static_assert on a table.
template <size_t kCount>
constexpr size_t CountGated(const Slot (&slots)[kCount], Gate gate) {
  size_t count = 0;
  for (const Slot& slot : slots) count += slot.gate == gate;
  return count;
}

}  // namespace vantrix
