// Bodies of classify.h, for the units that instantiate them.
#pragma once

#include "common/lane_ops.h"
#include "plugin/suites.h"
#include "suites/select/classify.h"

namespace vantrix {
namespace {

// All entries so far by bitwise or and by bitwise and, lane by lane.
template <class V>
struct Fold {
  V any = V{};
  V all = ~V{};

  VX_LANE void Take(V v) {
    any |= v;
    all &= v;
  }
  VX_LANE void Take(Fold other) {
    any |= other.any;
    all &= other.all;
  }
};

// `count` entries in whole registers; four at a time, into folds of their own.
template <class V, class T>
VX_INLINE void FoldBlocks(const T* from, intptr_t count, Fold<V>& fold) {
  constexpr intptr_t kLanes = kLaneCount<V>;
  intptr_t x = 0;
  if (count >= 4 * kLanes) {
    Fold<V> second, third, fourth;
    for (; x + 4 * kLanes <= count; x += 4 * kLanes) {
      fold.Take(Load<V>(from + x));
      second.Take(Load<V>(from + x + kLanes));
      third.Take(Load<V>(from + x + 2 * kLanes));
      fourth.Take(Load<V>(from + x + 3 * kLanes));
    }
    second.Take(third);
    fold.Take(second);
    fold.Take(fourth);
  }
  for (; x + kLanes <= count; x += kLanes) fold.Take(Load<V>(from + x));
}

// Folds rows, each by foldRow, until isMixed says that the class can only be MaskClass::kMixed;
// whether it did.
template <class V, class T, class FoldRow, class IsMixed>
VX_INLINE bool FoldRows(const T* data, int32_t rows, int32_t rowBytes, Fold<V>& fold,
                        FoldRow foldRow, IsMixed isMixed) {
  for (; rows > 0; --rows, data = Below(data, rowBytes)) {
    foldRow(data, fold);
    if (isMixed(fold)) return true;
  }
  return false;
}

}  // namespace

template <class Form>
int32_t SelectClassify8(const uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes) {
  constexpr int kSlot = 33;
  if (width < 16)
    return Call<Classify8Routine>(selectSuite.saved[kSlot])(data, rows, width, rowBytes);

  using V = Bytes16;
  const auto lightAnywhere = [](Fold<V> fold)
                                 VX_INLINED { return SetBytes(IsLight(fold.any)) != 0; };
  const auto lightThroughout = [](Fold<V> fold) VX_INLINED { return AllSet(IsLight(fold.all)); };
  Fold<V> fold;
  const bool isMixed = FoldRows(
      data, rows, rowBytes, fold,
      [=](const uint8_t* row, Fold<V>& into) VX_INLINED {
        FoldBlocks(row, width, into);
        into.Take(Load<V>(row + width - 16));
      },
      [=](Fold<V> soFar) VX_INLINED { return lightAnywhere(soFar) && !lightThroughout(soFar); });
  if (isMixed) return MaskClass::kMixed;
  if (AllSet(fold.any == 0)) return MaskClass::kEmpty;
  if (AllSet(fold.all == 255)) return MaskClass::kFull;
  return lightAnywhere(fold) ? MaskClass::kFromHalf : MaskClass::kBelowHalf;
}

template <class Form>
int32_t SelectClassify16(const uint16_t* data, int32_t rows, int32_t width, int32_t rowBytes) {
  constexpr int kSlot = 75;
  if (width < 8)
    return Call<Classify16Routine>(selectSuite.saved[kSlot])(data, rows, width, rowBytes);

  using V = Words8;
  const auto below = [](V v) VX_INLINED { return As<Lanes<int16_t, 8>>(v) < 16384; };
  Fold<V> fold;
  const bool isMixed = FoldRows(
      data, rows, rowBytes & ~1, fold,
      [=](const uint16_t* row, Fold<V>& into) VX_INLINED {
        const intptr_t past = reinterpret_cast<uintptr_t>(row) & 15;
        intptr_t x = 0;
        if (past != 0) {
          into.Take(Load<V>(row));
          x = (16 - past) / 2;
        }
        FoldBlocks(row + x, width - x, into);
        if ((width - x) % 8 != 0) into.Take(Load<V>(row + width - 8));
      },
      [=](Fold<V> soFar)
          VX_INLINED { return !AllSet(below(soFar.any)) && SetBytes(below(soFar.all)) != 0; });
  if (isMixed) return MaskClass::kMixed;
  if (AllSet(fold.any == 0)) return MaskClass::kEmpty;
  if (AllSet(fold.all == 0x8000)) return MaskClass::kFull;
  const bool noneBelow = SetBytes(below(fold.any)) == 0, allBelow = AllSet(below(fold.any));
  if (noneBelow) return SetBytes(below(fold.all)) == 0 ? MaskClass::kFromHalf : MaskClass::kMixed;
  return allBelow && AllSet(below(fold.all)) ? MaskClass::kBelowHalf : MaskClass::kMixed;
}

}  // namespace vantrix
