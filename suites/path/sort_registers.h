// Sorting of words in registers: a bitonic network whose steps are the same for any order.
//
// Registers v[0] ... v[kCount - 1] hold one list: word kCount x lane + r is lane `lane` of v[r]. So
// most of the network compares whole registers. Lists of a power of two merge as follows, whether
// they are registers of a lane or lanes side by side: the second list, from its end, is compared
// with the first from its start, lower words into the first; then each half is put in order by
// comparing words half a list apart, a quarter, and so on.
#pragma once

#include "common/lane_moves.h"
#include "common/unroll.h"

namespace vantrix {

// Of words, or lane by lane.
template <class V>
VX_LANE void PutInOrder(V& low, V& high) {
  const V a = low, b = high;
  low = a < b ? a : b;
  high = a < b ? b : a;
}

// Unrolled, so that the compiler keeps registers, but for large counts.
template <int kCount, class Step>
VX_INLINE void ForEachRegister(Step step) {
  if constexpr (kCount <= 8) {
    Repeat<kCount>(step);
  } else {
#pragma GCC unroll 1
    for (int r = 0; r < kCount; ++r) step(r);
  }
}

// Compares registers kApart apart, then half as far apart, to 1.
template <int kCount, int kApart, class V>
VX_INLINE void OrderRegisters(V* v) {
  if constexpr (kApart >= 1) {
    ForEachRegister<kCount / 2>([=](int i) VX_INLINED {
      const int r = i / kApart * 2 * kApart + i % kApart;
      PutInOrder(v[r], v[r + kApart]);
    });
    OrderRegisters<kCount, kApart / 2>(v);
  }
}
// Merges lists of kList / 2 registers, then longer ones, until one list has all of them.
template <int kCount, int kList, class V>
VX_INLINE void MergeRegisters(V* v) {
  if constexpr (kList <= kCount) {
    ForEachRegister<kCount / 2>([=](int i) VX_INLINED {
      const int first = i / (kList / 2) * kList, k = i % (kList / 2);
      PutInOrder(v[first + k], v[first + kList - 1 - k]);
    });
    OrderRegisters<kCount, kList / 4>(v);
    MergeRegisters<kCount, 2 * kList>(v);
  }
}

// Compares lanes kApart apart, then half as far apart, to 1.
template <int kCount, int kApart, class V>
VX_INLINE void OrderLanes(V* v) {
  if constexpr (kApart >= 1) {
    ForEachRegister<kCount>([=](int r) VX_INLINED {
      V low = v[r], high = Exchanged<kApart>(low);
      PutInOrder(low, high);
      v[r] = ByBit<kApart>(low, high);
    });
    OrderLanes<kCount, kApart / 2>(v);
  }
}
// Merges lists of kList / 2 lanes of all registers, then of more, until all lanes are one list.
template <int kCount, int kList, class V>
VX_INLINE void MergeLanes(V* v) {
  if constexpr (kList <= kLaneCount<V>) {
    ForEachRegister<kCount / 2>([=](int r) VX_INLINED {
      V& last = v[kCount - 1 - r];
      V low = v[r], high = Exchanged<kList - 1>(last);
      PutInOrder(low, high);
      v[r] = ByBit<kList / 2>(low, high);
      last = Exchanged<kList - 1>(ByBit<kList / 2>(high, low));
    });
    OrderLanes<kCount, kList / 4>(v);
    OrderRegisters<kCount, kCount / 2>(v);
    MergeLanes<kCount, 2 * kList>(v);
  }
}

// Sorts at most kCount registers of words, at least one. Registers compare signed numbers, so the
// highest bit is flipped. After the last word the registers hold the greatest number.
template <class Form, int kCount>
void SortRegisters(uint32_t* words, size_t count) {
  using V = Register<int32_t, Form>;
  constexpr size_t kLanes = kLaneCount<V>;
  const V flip = Fill<V>(INT32_MIN);
  const V lane = [=]<size_t... i>(std::index_sequence<i...>)
                     VX_INLINED { return V{int32_t{i}...}; }(std::make_index_sequence<kLanes>{});
  V v[kCount];
  ForEachRegister<kCount>([&](int r) VX_INLINED {
    const size_t start = static_cast<size_t>(r) * kLanes;
    if (start + kLanes <= count) {
      v[r] = Load<V>(words + start) ^ flip;
    } else {
      // The last whole register of words. Words that register r - 1 has are left out.
      const V last = Load<V>(words + count - kLanes) ^ flip;
      v[r] = lane >= static_cast<int32_t>(start + kLanes - count) ? last : Fill<V>(INT32_MAX);
    }
  });
  MergeRegisters<kCount, 2>(v);
  MergeLanes<kCount, 2>(v);

  uint32_t sorted[kCount * kLanes];
  ForEachRegister<kCount>(
      [&](int r) VX_INLINED { Store(&sorted[static_cast<size_t>(r) * kLanes], v[r] ^ flip); });
  for (size_t first = 0, from = 0; first < count; first += kCount, ++from)
    for (size_t r = 0; r < kCount && first + r < count; ++r)
      words[first + r] = sorted[r * kLanes + from];
}

// Sorts more than kLess words, at most kMost, in as many registers as hold them: a power of two.
// kLess words are at least one register of them.
template <class Form, size_t kLess, size_t kMost, int kCount = 2>
VX_INLINE void SortInRegisters(uint32_t* words, size_t count) {
  constexpr size_t kWords = size_t{kCount} * kLaneCount<Register<int32_t, Form>>;
  if constexpr (kWords <= kLess) {
    SortInRegisters<Form, kLess, kMost, 2 * kCount>(words, count);
  } else {
    if constexpr (kWords < kMost)
      if (count > kWords) return SortInRegisters<Form, kLess, kMost, 2 * kCount>(words, count);
    SortRegisters<Form, kCount>(words, count);
  }
}

}  // namespace vantrix
