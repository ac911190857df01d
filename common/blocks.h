// How a row is taken in registers.
//
// A place says which samples of a row are taken together. It loads them from, and stores them to,
// any row whose samples are as large as the lanes of its register:
//
//   Block<V>          one register of samples, from sample x on
//   Ends<V, kBytes>   the first and the last kBytes bytes of a row of up to twice as many, in one
//                     register. The two ends may overlap. The samples in both are then stored
//                     twice, with the same value
//
// A walk takes a whole row, place by place: walk.ForEach(work) calls work(place) for each.
//
// The tail of a row is seldom taken one sample at a time. A long row ends in a block that reaches
// back over the block before it (Blocks). A shorter row is taken in narrower registers, or as two
// ends in one register (WithBlocks). Places and counts are in samples.
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

// A walk over samples `start` to `end` in whole blocks: at
// least one, and at most kMost if that is not 0.
template <class V, int kMost = 0>
struct Blocks {
  using Register = V;
  intptr_t end, start = 0;

  VX_LANE Block<V> First() const { return {start}; }
  VX_LANE Block<V> Last() const { return {end - kLaneCount<V>}; }

  // Takes the blocks from sample x on except the last, two a turn: for the lightest work the loop
  // itself takes a third of the time.
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

// Whether a place is a block of a wide register. Only then is it worth the code to ask for samples
// before they are needed (common/far.h).
template <class Place>
inline constexpr bool kIsWide = false;
template <class V>
inline constexpr bool kIsWide<Block<V>> = sizeof(V) > 16;

// A walk over a row of `count` samples, at least 16 bytes, in blocks of kBytes.
// The tail is taken in the narrowest register that covers it, which reaches
// back if it is longer than the tail. For heavy work, for which half a register
// costs half. Out of place only: samples in two blocks are computed twice.
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
  // Takes the blocks from sample x on.
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

// A walk over a row that is one place.
template <class Place>
struct OnePlace {
  using Register = typename Place::Register;
  Place place;

  template <class Work>
  VX_INLINE void ForEach(Work work) const {
    work(place);
  }
};

// A walk that takes one sample at a time.
template <class T>
struct Singly {
  using Register = Lanes<T, 1>;
  intptr_t count;

  template <class Work>
  VX_INLINE void ForEach(Work work) const {
    for (intptr_t x = 0; x < count; ++x) work(Block<Register>{x});
  }
};

// Calls use(Blocks) for the widest register that samples `start` to `end` fill, of kBytes bytes,
// half of that, and so on down to kLeast; returns whether there is one. 65 to 96 bytes are faster
// in three registers of 32 than in two of 64 that overlap. Measured.
template <class T, int kBytes, int kMostBlocks = 0, int kLeast = 16, class Use>
VX_INLINE bool WithWholeBlocks(intptr_t start, intptr_t end, Use use) {
  const intptr_t bytes = (end - start) * intptr_t{sizeof(T)};
  if (bytes >= kBytes && !(kBytes == 64 && bytes > 64 && bytes <= 96)) {
    use(Blocks<Lanes<T, kBytes / int{sizeof(T)}>, kMostBlocks>{end, start});
    return true;
  }
  constexpr int kMostOfHalf = kBytes == 64 ? 3 : 2;
  if constexpr (kBytes > kLeast)
    return WithWholeBlocks<T, kBytes / 2, kMostOfHalf, kLeast>(start, end, use);
  return false;
}

// Calls use(OnePlace) for a row of less than 2 x kBytes bytes, taken as two ends of kBytes bytes,
// half of that, and so on. Ends of 16 bytes are in one register of 32, others in one of 16. Does
// nothing and returns false if the row has fewer than kFewest samples.
template <class T, int kFewest, int kBytes = 8, class Use>
VX_INLINE bool WithEnds(intptr_t count, Use use) {
  static_assert(kFewest >= 2, "two ends need at least two samples");
  if constexpr (kBytes >= 2 * int{sizeof(T)}) {
    if (count >= kFewest && count * intptr_t{sizeof(T)} >= kBytes) {
      constexpr int kRegister = kBytes == 16 ? 32 : 16;
      use(OnePlace<Ends<Lanes<T, kRegister / int{sizeof(T)}>, kBytes>>{{count}});
      return true;
    }
    return WithEnds<T, kFewest, kBytes / 2>(count, use);
  }
  return false;
}

// Calls use with the fastest walk over a row of `count` samples in registers of a form, and returns
// whether there is one. Fewer than kFewest samples are faster taken one at a time. Wide forms take
// 16 to 31 bytes as ends of 16, in the time of one register, unless kWidestEnds is 8.
template <class Form, class T, int kFewest = 2, int kWidestEnds = 16, class Use>
VX_INLINE bool WithRegisters(intptr_t count, Use use) {
  constexpr int kEnds = Form::kBytes > kWidestEnds ? kWidestEnds : 8;
  if constexpr (Form::kBytes == 1)
    return false;
  else
    return WithWholeBlocks<T, Form::kBytes, 0, 2 * kEnds>(0, count, use) ||
           WithEnds<T, kFewest, kEnds>(count, use);
}

// The same; without such a walk, calls use with one that takes one sample at a time.
template <class Form, class T, int kFewest = 2, int kWidestEnds = 16, class Use>
VX_INLINE void WithBlocks(intptr_t count, Use use) {
  if (!WithRegisters<Form, T, kFewest, kWidestEnds>(count, use)) use(Singly<T>{count});
}

// The same for heavy work out of place: the tail is taken in narrower registers.
template <class Form, class T, class Use>
VX_INLINE void WithTaperedBlocks(intptr_t count, Use use) {
  if constexpr (Form::kBytes > 1) {
    if (count * intptr_t{sizeof(T)} >= 16) return use(TaperedBlocks<T, Form::kBytes>{count});
    if (WithEnds<T, 2>(count, use)) return;
  }
  use(Singly<T>{count});
}

}  // namespace vantrix
