// The merge of a row's new boundaries with its settled ones.
#pragma once

#include <iterator>

#include "common/choose.h"
#include "suites/path/checks.h"
#include "suites/path/signatures.h"

namespace vantrix {

// The state of the merge: inside the new shape, inside the
// old spans. A value from a list toggles the list's bit.
enum MergeState : uint32_t { kInNew = 1, kInOld = 2 };

// For each operation which states are covered: bit s for state s. The last one, which keeps what
// the row held, is for every other code.
constexpr uint8_t kCoveredStates[] = {0b1110, 0b0100, 0b1000, 0b0110, 0b1100};
inline constexpr uint32_t kKeepSettled = std::size(kCoveredStates) - 1;

// The same as changes of coverage: bit 4 x state + toggle is set if coverage changes. Each unit has
// its own copy, so that it takes nothing from a unit of another form.
struct CoverageChanges {
  uint16_t of[std::size(kCoveredStates)];
};
constexpr CoverageChanges kCoverageChanges = [] {
  CoverageChanges changes{};
  for (uint32_t operation = 0; operation <= kKeepSettled; ++operation)
    for (uint32_t bit = 0; bit < 16; ++bit) {
      const uint32_t covered = kCoveredStates[operation], state = bit / 4, toggle = bit % 4;
      if (((covered >> state ^ covered >> (state ^ toggle)) & 1) != 0)
        changes.of[operation] |= static_cast<uint16_t>(1 << bit);
    }
  return changes;
}();

struct Boundaries {
  const uint32_t* first;
  size_t count;
};

// Writes the values at which coverage changes to `to`, at most `capacity`, and returns their
// number. The smaller head, as unsigned numbers, is taken; equal heads are one value that toggles
// both bits. When one list is used up, the rest of the other follows: as it toggles one bit only,
// coverage changes at each of its values or at none. A value that does not fit is lost, but state
// and coverage go on as if it had been written. The walk then goes to the rest of the settled list,
// and then to the rest of the added one.
//
// kFits: the two counts together are at most the capacity. The word after a list may be read, and
// the word after the result, within the capacity, may be written.
template <bool kFits, FillChecks Checks>
VX_INLINE size_t MergeBoundaries(Boundaries added, Boundaries settled, uint32_t changes,
                                 uint32_t* to, size_t capacity, const Checks& checks) {
  uint32_t state = 0;
  size_t count = 0;
  // Each value is written, but counts only if coverage changes.
  const auto take = [&](uint32_t value, uint32_t toggle) VX_INLINED {
    const uint32_t change = changes >> (4 * state + toggle) & 1;
    state ^= toggle;
    if (!kFits && count == capacity) return change == 0;
    to[count] = value;
    count += change;
    return true;
  };
  const auto takeRest = [&](const uint32_t* rest, const uint32_t* end, uint32_t toggle) VX_INLINED {
    auto taken = static_cast<size_t>(end - rest);
    bool fits = true;
    if ((changes >> (4 * state + toggle) & 1) != 0) {
      const size_t room = kFits ? taken : capacity - count;
      fits = taken <= room;
      const size_t kept = fits ? taken : room;
      for (size_t i = 0; i < kept; ++i) to[count + i] = rest[i];
      count += kept;
      if (!fits) taken = kept + 1;
    }
    state ^= taken % 2 * toggle;
    return fits;
  };

  const uint32_t *a = added.first, *b = settled.first;
  const uint32_t *const endA = a + added.count, *const endB = b + settled.count;
  // The next heads are loaded before it is known which one is needed.
  uint32_t headA = *a, headB = *b;
  while (a < endA && b < endB) {
    const bool fromA = headA <= headB, fromB = headB <= headA;
    checks.Require(!(fromA & fromB) | (headA == headB),
                   "CApplyFillArrayOperation Entries don't match.", 850);
    const uint32_t value = Choose(fromA, headA, headB);
    headA = Choose(fromA, a[1], headA);
    headB = Choose(fromB, b[1], headB);
    a += fromA;
    b += fromB;
    if (!checks.Require(take(value, kInNew * fromA + kInOld * fromB),
                        "CApplyFillArrayOperation Too many entries.", 863))
      break;
  }
  checks.Require(takeRest(b, endB, kInOld), "CApplyFillArrayOperation Too many entries. (2)", 884);
  checks.Require(takeRest(a, endA, kInNew), "CApplyFillArrayOperation Too many entries. (3)", 905);
  return count;
}

}  // namespace vantrix
