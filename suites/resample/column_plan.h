// The plan of the horizontal pass: what many rows share of a stretch of columns.
//
// A unit is what one output column takes at once into a lane of 32 bits: two or four
// 8-bit taps, two 16-bit taps or one float. Four columns side by side are a quad; one
// unit of each of them is a register, and so is what a rule multiplies it with. The plan
// holds, quad by quad, what an access needs to fetch units and what the rule needs to
// weigh them, as 32-bit words with one lane a column.
//
// A last unit that has too few taps weighs the rest of what it reads with 0. So that it
// reads nothing behind the last tap of the row, the columns at the very end start a tap
// or more early, with zeros before their weights.
#pragma once

#include "common/gather.h"
#include "suites/resample/filter.h"

namespace vantrix {

inline constexpr int kQuadColumns = 4;

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

// Weights k .. k + 3 of four columns, in pairs as 16-bit lanes: k and k + 1 of each, k + 2
// and k + 3 of each. A column's weights start `bases` bytes into the table, after as many
// zeros as `leads` says, and end with zeros too. Nothing is read but weights.
VX_INLINE Gathered<2> GatherWeights(Taps taps, const uint32_t (&bases)[kQuadColumns], Ints4 leads,
                                    int32_t k) {
  const auto table = reinterpret_cast<const uint8_t*>(taps.weights);
  const int32_t rest = taps.count - k;
  const bool isLed = !AllSet(leads == 0);
  if (!isLed && rest >= 4) return Gather<2>(table + 2 * k, bases);
  if (!isLed && rest == 2) return {Gather<1>(table + 2 * k, bases).units[0], Sums4{}};
  alignas(16) uint16_t weights[4 * kQuadColumns];
  alignas(16) int32_t first[kQuadColumns];
  Store(first, leads);
  for (int i = 0; i < 4 * kQuadColumns; ++i) {
    const int32_t tap = k + i % 4 - first[i / 4];
    weights[i] = tap >= 0 && tap < taps.count ? Load<uint16_t>(table + bases[i / 4] + 2 * tap) : 0;
  }
  constexpr uint32_t kPlaces[] = {0, 8, 16, 24};
  return Gather<2>(reinterpret_cast<const uint8_t*>(weights), kPlaces);
}

// An access fetches units of kBytes bytes. Plan is given the starts of a quad's columns,
// none of them behind `latest`, so that none of their units is behind the span; it writes
// kWords words, and says whether the quad can be fetched this way. Fetch gives kCount
// units from `unit` on, a multiple of kCount: 4, 2 or, at the end, 1.

// Each column's units from where the column starts.
struct ByGather {
  template <int kBytes>
  static constexpr int kWords = 4;

  template <int kBytes>
  VX_INLINE static bool Plan(uint32_t* words, Ints4 starts, int32_t, int32_t) {
    Store(words, starts);
    return true;
  }
  template <int kBytes, int kCount>
  VX_INLINE static Gathered<kCount> Fetch(const uint8_t* row, const uint32_t* words, int unit) {
    return Gather<kCount>(row + kBytes * unit, words);
  }
};

struct ByWindow;
#if defined(__SSSE3__)
// All four columns' from a window of 16 bytes, where they lie close enough together. From
// units to units the window moves on; the places in it stay.
//
// Units of two bytes are spread over two 16-bit lanes each, two units from a window: the
// last two are what it must hold.
struct ByWindow {
  template <int kBytes>
  static constexpr int kWords = kBytes == 2 ? 12 : 8;

  template <int kBytes>
  VX_INLINE static bool Plan(uint32_t* words, Ints4 starts, int32_t latest, int32_t units) {
    const int32_t reach = kBytes == 2 && units == 1 ? 14 : 12;  // of the last column's start
    int32_t window = latest - reach, last = 0;
    if (window < 0) return false;
    alignas(16) int32_t start[kQuadColumns];
    Store(start, starts);
    for (int c = 0; c < kQuadColumns; ++c) {
      window = start[c] < window ? start[c] : window;
      last = start[c] > last ? start[c] : last;
    }
    words[0] = static_cast<uint32_t>(window);
    const auto place = As<Sums4>(starts - window);
    const Sums4 twice = place | place << 16;
    if constexpr (kBytes == 2) {
      Store(words + 4, twice + 0x80018000);
      Store(words + 8, twice + 0x80038002);
    } else {
      Store(words + 4, (twice | twice << 8) + 0x03020100);
    }
    return last - window <= reach;
  }

  template <int kBytes, int kCount>
  VX_INLINE static Gathered<kCount> Fetch(const uint8_t* row, const uint32_t* words, int unit) {
    Gathered<kCount> fetched;
    const auto window = [=](int at)
                            VX_INLINED { return Load<Bytes16>(row + words[0] + kBytes * at); };
    const auto place = [=](Bytes16 bytes, int second) VX_INLINED {
      return As<Sums4>(Shuffle(bytes, LoadAligned<Bytes16>(words + 4 + 4 * second)));
    };
    if constexpr (kBytes != 2) {
      Repeat<kCount>([&](int i) VX_INLINED { fetched.units[i] = place(window(unit + i), 0); });
    } else if constexpr (kCount == 1) {
      fetched.units[0] = unit > 0 ? place(window(unit - 1), 1) : place(window(unit), 0);
    } else {
      Repeat<kCount / 2>([&](int i) VX_INLINED {
        const Bytes16 bytes = window(unit + 2 * i);
        fetched.units[2 * i] = place(bytes, 0);
        fetched.units[2 * i + 1] = place(bytes, 1);
      });
    }
    return fetched;
  }
};
#endif

}  // namespace vantrix
