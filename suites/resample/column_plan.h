// The plan of the horizontal pass: what many rows share of a stretch of columns.
//
// A unit is what one output column takes at once into a lane of 32 bits: two or four
// 8-bit taps, two 16-bit taps or one float. As many columns side by side as a register has
// such lanes are a set; one unit of each of them is a register, and so is what a rule
// multiplies it with. All in a plan is registers with one lane a column:
//
//   plan  | set of columns 0 and on | set of the next columns | ...          | set |
//                                                                              the last one
//                                                                              reaches back
//   set   | where | places | start | weights of unit 0 | of unit 1 | ...
//           |       |        |       what the rule makes of them: one register or two
//           |       |        what sums start with, if the rule says so
//           |       where in its window each column's first unit is, byte by byte
//           how many bytes behind the span's first the column starts, or its window
//
//   lanes | column x | x + 1 | x + 2 | x + 3 |  in a wider register  | x + 4 | ...
//
// A last unit that has too few taps weighs the rest of what it reads with 0. So that it
// reads nothing behind the last tap of the row, the columns at the very end start a tap
// or more early, with zeros before their weights.
#pragma once

#include "common/gather.h"
#include "suites/resample/filter.h"
#include "suites/resample/windows.h"

namespace vantrix {

// The bytes from the first to the last that the taps of a row name; `first` is counted
// from the source's row, everything in a plan from `first`.
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

// Weights k .. k + 3 of a set's columns, in pairs as 16-bit lanes: k and k + 1 of each, k + 2
// and k + 3 of each. A column's weights start `bases` bytes into the table, after as many
// zeros as `leads` says, and end with zeros too. Nothing is read but weights.
template <class S>
VX_INLINE Gathered<S, 2> GatherWeights(Taps taps, const uint32_t* bases, Ints<S> leads, int32_t k) {
  const auto table = reinterpret_cast<const uint8_t*>(taps.weights);
  const int32_t rest = taps.count - k;
  const bool isLed = !AllSet(leads == 0);
  if (!isLed && rest >= 4) return Gather<S, 2>(table + 2 * k, bases);
  if (!isLed && rest == 2) return {Gather<S, 1>(table + 2 * k, bases).units[0], S{}};
  constexpr int kColumns = kLaneCount<S>;
  uint16_t weights[4 * kColumns];
  uint32_t places[kColumns];
  int32_t first[kColumns];
  Store(first, leads);
#pragma GCC unroll 1
  for (int i = 0; i < 4 * kColumns; ++i) {
    const int32_t tap = k + i % 4 - first[i / 4];
    weights[i] = tap >= 0 && tap < taps.count ? Load<uint16_t>(table + bases[i / 4] + 2 * tap) : 0;
    places[i / 4] = static_cast<uint32_t>(i / 4 * 8);
  }
  return Gather<S, 2>(reinterpret_cast<const uint8_t*>(weights), places);
}

// An access fetches units of kBytes bytes by the first kRegisters registers of a set. Plan
// writes them; it is given the starts of the set's columns, none of them behind `latest`, so
// that none of their units is behind the span, and says whether the set can be fetched this
// way. Fetch gives kCount of `units` units from `unit` on.

// Each column's units from where the column starts.
struct ByGather {
  static constexpr int kRegisters = 1;

  template <int kBytes, class S>
  VX_INLINE static bool Plan(uint32_t* words, Ints<S> starts, int32_t, int32_t) {
    Store(words, As<S>(starts));
    return true;
  }
  template <class S, int kBytes, int kCount>
  VX_INLINE static Gathered<S, kCount> Fetch(const uint8_t* row, const uint32_t* words, int unit,
                                             int) {
    // Two units are quicker taken as the last of four that begin two before. Measured.
    if constexpr (kCount == 2)
      if (unit >= 2) {
        const auto four = Gather<S, 4>(row + kBytes * (unit - 2), words);
        return {four.units[2], four.units[3]};
      }
    return Gather<S, kCount>(row + kBytes * unit, words);
  }
};

// All columns' from a window, of a kind that suites/resample/windows.h lists, where they lie
// close enough together. A window holds a few units of each column, `held`, whose places
// differ by the bytes of a unit. Then it moves on by so many units, the last time by fewer;
// the places in it stay.
template <class Window>
struct ByWindow {
  static constexpr int kRegisters = 1 + Window::kRegisters;

  template <int kBytes, class S>
  VX_INLINE static bool Plan(uint32_t* words, Ints<S> starts, int32_t latest, int32_t units) {
    const int32_t reach = Window::kBytes - kBytes * Held(units);  // of the last start
    if (latest < reach) return false;
    Ints<S> window = starts < latest - reach ? starts : Fill<Ints<S>>(latest - reach);
    Ints<S> last = starts;
    const auto hold = [&](Ints<S> first, Ints<S> end) VX_INLINED {
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
