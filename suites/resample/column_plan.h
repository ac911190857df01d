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
    return Gather<S, kCount>(row + kBytes * unit, words);
  }
};

template <bool kIsShared>
struct ByWindows;
using ByWindow = ByWindows<false>;
using BySharedWindow = ByWindows<true>;
#if defined(__SSSE3__)
// A window is 16 bytes for the four columns of a group, or one for all columns of a set; it
// serves where they lie close enough together. It holds a few units of each column, `held`,
// whose places differ by the bytes of a unit. Then it moves on by so many units, the last
// time by fewer; the places in it stay.
//
// Units of two bytes are spread over two 16-bit lanes each.
template <bool kIsShared>
struct ByWindows {
  static constexpr int kRegisters = 2;

  // A register in which bytes can be looked up anywhere is a window, others are repeated.
  template <class S>
  static constexpr bool kIsWide = kIsShared && kLooksUpAnywhere<S>;
  template <class S>
  static constexpr int kWindow = kIsWide<S> ? sizeof(S) : 16;
  template <class S, int kBytes>
  VX_INLINE static int Held(int units) {
    constexpr int kMost = kIsWide<S> ? 4 : kBytes == 2 ? 2 : 1;
    return units < kMost ? units : kMost;
  }

  template <int kBytes, class S>
  VX_INLINE static bool Plan(uint32_t* words, Ints<S> starts, int32_t latest, int32_t units) {
    const int32_t reach = kWindow<S> - kBytes * Held<S, kBytes>(units);  // of the last start
    if (latest < reach) return false;
    Ints<S> window = starts < latest - reach ? starts : Fill<Ints<S>>(latest - reach),
            last = starts;
    const auto hold = [&](Ints<S> first, Ints<S> end) VX_INLINED {
      window = first < window ? first : window;
      last = end > last ? end : last;
    };
    hold(Exchanged<1>(window), Exchanged<1>(last));
    hold(Exchanged<2>(window), Exchanged<2>(last));
    if constexpr (kIsShared && sizeof(S) > 16) hold(Exchanged<4>(window), Exchanged<4>(last));
    if constexpr (kIsShared && sizeof(S) > 32) hold(Exchanged<8>(window), Exchanged<8>(last));
    if (!NoneSet(last - window > reach)) return false;
    Store(words, window);
    const S place = As<S>(starts - window), twice = place | place << 16;
    Store(words + kLaneCount<S>,
          kBytes == 2 ? twice + 0x80018000 : (twice | twice << 8) + 0x03020100);
    return true;
  }

  template <class S, int kBytes, int kCount>
  VX_INLINE static Gathered<S, kCount> Fetch(const uint8_t* row, const uint32_t* words, int unit,
                                             int units) {
    constexpr int kHeld = kIsWide<S> ? 4 : kBytes == 2 ? 2 : 1;
    Gathered<S, kCount> fetched;
    const int held = Held<S, kBytes>(units);
    const auto places = LoadAligned<Bytes<S>>(words + kLaneCount<S>);
    const auto fetch = [&](Bytes<S> window, int at, int i) VX_INLINED {
      fetched.units[i] = As<S>(Place<kBytes>(window, places + uint8_t(kBytes * (unit + i - at))));
    };
    constexpr int kWindows = (kCount + kHeld - 1) / kHeld;
    Repeat<kWindows>([&](int w) VX_INLINED {
      constexpr int kOfWindow = kCount < kHeld ? kCount : kHeld;
      const int last = unit + (w + 1) * kOfWindow;
      const int at = last > held ? last - held : 0;
      const auto window = LoadWindow<S>(row + kBytes * at, words);
      Repeat<kOfWindow>([&](int i) VX_INLINED { fetch(window, at, w * kOfWindow + i); });
    });
    return fetched;
  }

 private:
  template <class S>
  VX_INLINE static Bytes<S> LoadWindow(const uint8_t* row, const uint32_t* words) {
    if constexpr (kIsWide<S>)
      return Load<Bytes<S>>(row + words[0]);
    else if constexpr (kIsShared)
      return LoadIntoGroups<Bytes<S>>(row + words[0]);
    else
      return LoadGroups<Bytes<S>>([=](int group) VX_INLINED { return row + words[4 * group]; });
  }
  template <int kBytes, class B>
  VX_INLINE static B Place(B window, B places) {
    if constexpr (!kIsWide<B>)
      return Shuffle(window, places);
    else if constexpr (kBytes == 2)
      return LookUpEven(window, places);
    else
      return LookUp(window, places);
  }
};
#endif

}  // namespace vantrix
