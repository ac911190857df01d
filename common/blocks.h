// How a row is taken in registers: where blocks of its samples lie.
//
//   Block<V>          one register of samples, from sample x on
//   Ends<V, kBytes>   a row shorter than 16 bytes as its first and its last kBytes bytes in
//                     one register. The two may overlap; then the samples between stand in it
//                     twice, and are stored twice with one value
//
// Both load from and store to any row of samples as large as V's lanes. A row's end seldom
// falls to one sample at a time: a long row ends in a block that reaches back over the one
// before (Blocks), a shorter one is taken in narrower registers, the shortest as two ends
// (WithBlocks). Places and counts are in samples.
#pragma once

#include "common/forms.h"
#include "common/lane_ops.h"

namespace vantrix {

template <class V>
struct Block {
  using Register = V;
  intptr_t x;

  template <class T>
  VX_LANE V LoadFrom(const T* row) const {
    return Load<V>(row + x);
  }
  template <class T>
  VX_LANE void StoreTo(T* row, V samples) const {
    Store(row + x, samples);
  }
};

template <class V, int kBytes>
struct Ends {
  using Register = V;
  intptr_t count;

  template <class T>
  VX_LANE V LoadFrom(const T* row) const {
    return LoadEnds<V, kBytes>(row, count);
  }
  template <class T>
  VX_LANE void StoreTo(T* row, V samples) const {
    StoreEnds<kBytes>(row, count, samples);
  }
};

// Samples `start` to `end` of a row in whole blocks, at least one; at most kMost, if that is not 0.
template <class V, int kMost = 0>
struct Blocks {
  using Register = V;
  intptr_t end, start = 0;

  VX_LANE Block<V> First() const { return {start}; }
  VX_LANE Block<V> Last() const { return {end - kLaneCount<V>}; }

  // Those from sample x on, every one but the last. Two a round, as for the lightest work
  // walking is a third of it.
  template <class Work>
  VX_INLINE void ForEachBeforeLast(intptr_t x, Work work) const {
    const intptr_t last = end - kLaneCount<V>;
#pragma GCC unroll 2
    for (int i = 1; (kMost == 0 || i < kMost) && x < last; ++i, x += kLaneCount<V>)
      work(Block<V>{x});
  }
  // All of them, in order.
  template <class Work>
  VX_INLINE void ForEach(Work work) const {
    ForEachBeforeLast(start, work);
    work(Last());
  }
};

// A row of `count` samples, at least 16 bytes, in blocks of kBytes, the last one in the
// narrowest that covers the rest; where it is more than the rest it reaches back. For heavy
// work, of which half a register costs half. Out of place only: what blocks have in common is
// computed again.
template <class T, int kBytes>
struct TaperedBlocks {
  using Register = Lanes<T, kBytes / int{sizeof(T)}>;
  static constexpr intptr_t kSize = kLaneCount<Register>;
  intptr_t count;

  VX_LANE Block<Register> Last() const { return {count - kSize}; }

  template <class Work>
  VX_INLINE void ForEach(Work work) const {
    ForEachFrom(0, work);
  }
  // Those from sample x on.
  template <class Work>
  VX_INLINE void ForEachFrom(intptr_t x, Work work) const {
    for (; x <= count - kSize; x += kSize) work(Block<Register>{x});
    if constexpr (kBytes > 16) {
      if (count >= kSize && count - x > kSize / 2) return work(Last());
      TaperedBlocks<T, kBytes / 2>{count}.ForEachFrom(x, work);
    } else if (x < count) {
      work(Last());
    }
  }
};

// A row that is one place, of two ends or of one sample.
template <class Place>
struct OnePlace {
  using Register = typename Place::Register;
  Place place;

  template <class Work>
  VX_INLINE void ForEach(Work work) const {
    work(place);
  }
};

// Every sample by itself.
template <class T>
struct Singly {
  using Register = Lanes<T, 1>;
  intptr_t count;

  template <class Work>
  VX_INLINE void ForEach(Work work) const {
    for (intptr_t x = 0; x < count; ++x) work(Block<Register>{x});
  }
};

// Calls use(Blocks) for the widest register, of kBytes bytes or a half of that and so on down
// to 16, that samples `start` to `end` fill; returns whether there is one. 65 to 96 bytes are
// quicker taken in three registers of 32 than in two of 64 that overlap. Measured.
template <class T, int kBytes, int kMostBlocks = 0, class Use>
VX_INLINE bool WithWholeBlocks(intptr_t start, intptr_t end, Use use) {
  const intptr_t bytes = (end - start) * intptr_t{sizeof(T)};
  if (bytes >= kBytes && !(kBytes == 64 && bytes > 64 && bytes <= 96)) {
    use(Blocks<Lanes<T, kBytes / int{sizeof(T)}>, kMostBlocks>{end, start});
    return true;
  }
  constexpr int kMostOfHalf = kBytes == 64 ? 3 : 2;
  if constexpr (kBytes > 16) return WithWholeBlocks<T, kBytes / 2, kMostOfHalf>(start, end, use);
  return false;
}

// Calls use(OnePlace) for a row of less than 16 bytes, taken as two ends of 8 bytes or a half
// of that and so on down to kFewest samples; returns whether it is one.
template <class T, int kFewest, int kBytes = 8, class Use>
VX_INLINE bool WithEnds(intptr_t count, Use use) {
  static_assert(kFewest >= 2, "two ends of one sample are two samples");
  if constexpr (kBytes >= 2 * int{sizeof(T)}) {
    if (count >= kFewest && count * intptr_t{sizeof(T)} >= kBytes) {
      use(OnePlace<Ends<Lanes<T, 16 / int{sizeof(T)}>, kBytes>>{{count}});
      return true;
    }
    return WithEnds<T, kFewest, kBytes / 2>(count, use);
  }
  return false;
}

// Calls use with the quickest way to take a row of `count` samples in registers of a form, and
// returns whether there is one. Fewer than kFewest samples are quicker taken one by one.
template <class Form, class T, int kFewest = 2, class Use>
VX_INLINE bool WithRegisters(intptr_t count, Use use) {
  if constexpr (Form::kBytes == 1)
    return false;
  else
    return WithWholeBlocks<T, Form::kBytes>(0, count, use) || WithEnds<T, kFewest>(count, use);
}

// The same, or else with samples one by one.
template <class Form, class T, int kFewest = 2, class Use>
VX_INLINE void WithBlocks(intptr_t count, Use use) {
  if (!WithRegisters<Form, T, kFewest>(count, use)) use(Singly<T>{count});
}

// The same for heavy work out of place: whole blocks are tapered.
template <class Form, class T, class Use>
VX_INLINE void WithTaperedBlocks(intptr_t count, Use use) {
  if constexpr (Form::kBytes > 1) {
    if (count * intptr_t{sizeof(T)} >= 16) return use(TaperedBlocks<T, Form::kBytes>{count});
    if (WithEnds<T, 2>(count, use)) return;
  }
  use(Singly<T>{count});
}

}  // namespace vantrix
