// The plan of the horizontal pass: what the rows of a chunk of columns share.
//
// A unit is what one output column takes at once into a 32-bit lane: two or four 8-bit taps, two
// 16-bit taps or one float. As many neighbouring columns as a register has such lanes are a set.
// One unit of each column of a set is a register, and so are the weights that a rule multiplies it
// with. A plan consists of registers, with one lane for each column:
//
//   plan  | set of columns 0 and on | set of the next columns | ...          | set |
//                                                                              the last one
//                                                                              reaches back
//   set   | where | indices | start | weights of unit 0 | of unit 1 | ...
//           |       |         |       as the rule prepares them: one register or two
//           |       |         what sums start with, if the rule needs it
//           |       where in its window each column's first unit is, if the access has windows
//           how many bytes after the start of the span the column, or its window, starts
//
//   lanes | column x | x + 1 | x + 2 | x + 3 |  in a wider register  | x + 4 | ...
//
// If taps do not fill the last unit, the rest of it has weights of 0. It
// must read nothing after the last tap of the row, so the columns at the
// very end start one tap or more early, with zeros before their weights.
#pragma once

#include "suites/resample/filter.h"
#include "suites/resample/gather.h"
#include "suites/resample/windows.h"

namespace vantrix {

// The bytes of a source row from the first tap to the last. `first` counts from the start of the
// row, everything in a plan from `first`.
struct Span {
  int32_t lowest;  // offset
  intptr_t first, bytes;
};
template <class Sample>
VX_INLINE Span SpanOf(Taps taps, int32_t width) {
  int32_t lowest = taps.offsets[0], highest = lowest;
  for (int32_t x = 1; x < width; ++x) {
    const int32_t offset = taps.offsets[x];
    lowest = offset < lowest ? offset : lowest;
    highest = offset > highest ? offset : highest;
  }
  constexpr intptr_t kSize = sizeof(Sample);
  return {lowest, (intptr_t{lowest} + 1 - taps.count / 2) * kSize,
          (intptr_t{highest} - lowest + taps.count) * kSize};
}

// Gathers weights k .. k + 3 of a set's columns, in pairs of 16-bit lanes: k and k + 1 of each
// column in one register, k + 2 and k + 3 in the other. A column's weights start `bases` bytes into
// the table. They follow `leads` zeros, and zeros follow them. Only weights are read.
template <class S>
VX_INLINE Gathered<S, 2> GatherWeights(Taps taps, const uint32_t* bases, I32<S> leads, int32_t k) {
  const auto table = reinterpret_cast<const uint8_t*>(taps.weights);
  const int32_t rest = taps.count - k;
  const bool isLed = !AllSet(leads == 0);
  if (!isLed && rest >= 4) return Gather<S, 2>(table + 2 * k, bases);
  if (!isLed && rest == 2) return {Gather<S, 1>(table + 2 * k, bases).units[0], S{}};
  constexpr int kColumns = kLaneCount<S>;
  uint16_t weights[4 * kColumns];
  uint32_t at[kColumns];
  int32_t first[kColumns];
  Store(first, leads);
#pragma GCC unroll 1
  for (int i = 0; i < 4 * kColumns; ++i) {
    const int32_t tap = k + i % 4 - first[i / 4];
    weights[i] = tap >= 0 && tap < taps.count ? Load<uint16_t>(table + bases[i / 4] + 2 * tap) : 0;
    at[i / 4] = static_cast<uint32_t>(i / 4 * 8);
  }
  return Gather<S, 2>(reinterpret_cast<const uint8_t*>(weights), at);
}

// An access fetches the units of a set, with the first kRegisters registers of its plan.
//
//   Plan<kBytes, S>(words, starts, latest, units)
//        writes these registers for units of kBytes bytes, from the starts of the set's columns.
//        None of them is after `latest`, so that no unit reaches beyond the span. Returns false if
//        the set cannot be fetched this way
//   Fetch<S, kBytes, kCount>(row, words, unit, units)
//        returns kCount of `units` units, from `unit` on
template <class T, class S>
concept AccessTo = requires(uint32_t* words, I32<S> starts, const uint8_t* row) {
  { T::kRegisters } -> std::convertible_to<int>;
  { T::template Plan<4, S>(words, starts, 0, 1) } -> std::same_as<bool>;
  { T::template Fetch<S, 4, 1>(row, words, 0, 1) } -> std::same_as<Gathered<S, 1>>;
};

// Loads each column's units from where the column starts.
struct ByGather {
  static constexpr int kRegisters = 1;

  template <int kBytes, class S>
  VX_INLINE static bool Plan(uint32_t* words, I32<S> starts, int32_t, int32_t) {
    Store(words, As<S>(starts));
    return true;
  }
  template <class S, int kBytes, int kCount>
  VX_INLINE static Gathered<S, kCount> Fetch(const uint8_t* row, const uint32_t* words, int unit,
                                             int) {
    // Two units are faster loaded as the last two of four. Measured.
    if constexpr (kCount == 2)
      if (unit >= 2) {
        const auto four = Gather<S, 4>(row + kBytes * (unit - 2), words);
        return {four.units[2], four.units[3]};
      }
    return Gather<S, kCount>(row + kBytes * unit, words);
  }
};

// Picks all columns' units from a window (suites/resample/windows.h), if the
// columns are close enough together. A window has a few units of each column
// (`held`), which are adjacent. Then the window moves on by that many units,
// the last time by fewer; the columns' indices in it stay the same.
template <class Window>
struct ByWindow {
  static constexpr int kRegisters = 1 + Window::kRegisters;

  template <int kBytes, class S>
  VX_INLINE static bool Plan(uint32_t* words, I32<S> starts, int32_t latest, int32_t units) {
    static_assert(WindowOf<Window, S>);
    const int32_t reach = Window::kBytes - kBytes * Held(units);  // of the last start
    if (latest < reach) return false;
    I32<S> window = starts < latest - reach ? starts : Fill<I32<S>>(latest - reach);
    I32<S> last = starts;
    const auto hold = [&](I32<S> first, I32<S> end) VX_INLINED {
      window = first < window ? first : window;
      last = end > last ? end : last;
    };
    hold(Exchanged<1>(window), Exchanged<1>(last));
    hold(Exchanged<2>(window), Exchanged<2>(last));
    if constexpr (Window::kIsShared && sizeof(S) > 16)
      hold(Exchanged<4>(window), Exchanged<4>(last));
    if constexpr (Window::kIsShared && sizeof(S) > 32)
      hold(Exchanged<8>(window), Exchanged<8>(last));
    Store(words, window);
    return NoneSet(last - window > reach) &&
           Window::Plan(words + kLaneCount<S>, As<S>(starts - window));
  }

  template <class S, int kBytes, int kCount>
  VX_INLINE static Gathered<S, kCount> Fetch(const uint8_t* row, const uint32_t* words, int unit,
                                             int units) {
    Gathered<S, kCount> fetched;
    const int held = Held(units);
    constexpr int kOfWindow = kCount < Window::kHeld ? kCount : Window::kHeld;
    Repeat<kCount / kOfWindow>([&](int w) VX_INLINED {
      const int end = unit + (w + 1) * kOfWindow;
      const int at = end > held ? end - held : 0;
      const auto window = Window::LoadFrom(row + kBytes * at, words);
      Repeat<kOfWindow>([&](int i) VX_INLINED {
        const int of = w * kOfWindow + i;
        fetched.units[of] = Window::Pick(window, words + kLaneCount<S>, unit + of - at);
      });
    });
    return fetched;
  }

 private:
  VX_INLINE static int Held(int units) { return units < Window::kHeld ? units : Window::kHeld; }
};

}  // namespace vantrix
