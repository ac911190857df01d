// Bodies of classify.h, for the units that instantiate them.
#pragma once

#include "common/blocks.h"
#include "plugin/base/suites.h"
#include "suites/select/classify.h"

namespace vantrix {
namespace {

// All entries so far, combined by bitwise or and by bitwise and, lane by lane.
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

// Folds the 16-byte groups of a wide fold into one.
template <class V>
VX_INLINE auto InOneGroup(Fold<V> fold) {
  if constexpr (sizeof(V) == 16) {
    return fold;
  } else {
    return InOneGroup(Fold<HalfOf<V>>{Half<0>(fold.any) | Half<1>(fold.any),
                                      Half<0>(fold.all) & Half<1>(fold.all)});
  }
}

// Folds entries x to `end` in whole registers, four at a time
// into four folds. Returns the first entry that is left.
template <class V, class T>
VX_INLINE intptr_t FoldBlocks(const T* row, intptr_t x, intptr_t end, Fold<V>& fold) {
  constexpr intptr_t kLanes = kLaneCount<V>;
  if (end - x >= 4 * kLanes) {
    Fold<V> second, third, fourth;
#pragma GCC unroll 2
    for (; x + 4 * kLanes <= end; x += 4 * kLanes) {
      fold.Take(Load<V>(row + x));
      second.Take(Load<V>(row + x + kLanes));
      third.Take(Load<V>(row + x + 2 * kLanes));
      fourth.Take(Load<V>(row + x + 3 * kLanes));
    }
    second.Take(third);
    fold.Take(second);
    fold.Take(fourth);
  }
  for (; x + kLanes <= end; x += kLanes) fold.Take(Load<V>(row + x));
  return x;
}

// Folds rows, each by foldRow, until isMixed returns true: the class can only be MaskClass::kMixed.
// Returns whether it did.
template <class V, class T, class FoldRow, class IsMixed>
VX_INLINE bool FoldRows(const T* data, int32_t rows, int32_t rowBytes, Fold<V>& fold,
                        FoldRow foldRow, IsMixed isMixed) {
  for (; rows > 0; --rows, data = Below(data, rowBytes)) {
    foldRow(data, fold);
    if (isMixed(fold)) return true;
  }
  return false;
}

// Classifies rows of at least one register V. It does not matter which entry is in which lane.
template <class V>
VX_INLINE int32_t Classify8(const uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes) {
  const auto lightAnywhere = [](Fold<V> fold) VX_INLINED { return !NoneSet(IsLight(fold.any)); };
  const auto lightThroughout = [](Fold<V> fold) VX_INLINED { return AllSet(IsLight(fold.all)); };
  Fold<V> fold;
  const bool isMixed = FoldRows(
      data, rows, rowBytes, fold,
      [=](const uint8_t* row, Fold<V>& into) VX_INLINED {
        FoldBlocks(row, 0, width, into);
        into.Take(Load<V>(row + width - kLaneCount<V>));
      },
      [=](Fold<V> soFar) VX_INLINED { return lightAnywhere(soFar) && !lightThroughout(soFar); });
  if (isMixed) return MaskClass::kMixed;
  if (AllSet(fold.any == 0)) return MaskClass::kEmpty;
  if (AllSet(fold.all == 255)) return MaskClass::kFull;
  return lightAnywhere(fold) ? MaskClass::kFromHalf : MaskClass::kBelowHalf;
}

// The eight lanes in which the rule combines entries.
using EightLanes = Lanes<uint16_t, 8>;

// Classifies rows of at least eight entries, in registers
// Wide of whole groups of eight as far as they go.
template <class Wide>
VX_INLINE int32_t Classify16(const uint16_t* data, int32_t rows, int32_t width, int32_t rowBytes) {
  using V = EightLanes;
  const auto below = [](V v) VX_INLINED { return As<Lanes<int16_t, 8>>(v) < 16384; };
  Fold<V> fold;
  const bool isMixed = FoldRows(
      data, rows, rowBytes, fold,
      [=](const uint16_t* row, Fold<V>& into) VX_INLINED {
        const intptr_t head = ToNextBoundary<16>(row);
        intptr_t x = 0;
        if (head < 16) {
          into.Take(Load<V>(row));
          x = head / 2;
        }
        if constexpr (sizeof(Wide) > sizeof(V)) {
          Fold<Wide> wide;
          x = FoldBlocks(row, x, width, wide);
          into.Take(InOneGroup(wide));
        }
        x = FoldBlocks(row, x, width, into);
        if (x < width) into.Take(Load<V>(row + width - 8));
      },
      [=](Fold<V> soFar)
          VX_INLINED { return !AllSet(below(soFar.any)) && !NoneSet(below(soFar.all)); });
  if (isMixed) return MaskClass::kMixed;
  if (AllSet(fold.any == 0)) return MaskClass::kEmpty;
  if (AllSet(fold.all == 0x8000)) return MaskClass::kFull;
  const bool noneBelow = NoneSet(below(fold.any)), allBelow = AllSet(below(fold.any));
  if (noneBelow) return NoneSet(below(fold.all)) ? MaskClass::kFromHalf : MaskClass::kMixed;
  return allBelow && AllSet(below(fold.all)) ? MaskClass::kBelowHalf : MaskClass::kMixed;
}

}  // namespace

template <class Form>
int32_t SelectClassify8(const uint8_t* data, int32_t rows, int32_t width, int32_t rowBytes) {
  constexpr int kSlot = 33;
  int32_t maskClass = 0;
  if (WithWholeBlocks<uint8_t, Form::kBytes>(
          0, width, [&]<class V, int kMost>(Blocks<V, kMost>) VX_INLINED {
            maskClass = Classify8<V>(data, rows, width, rowBytes);
          }))
    return maskClass;
  return Call<Classify8Routine>(selectSuite.saved[kSlot])(data, rows, width, rowBytes);
}

template <class Form>
int32_t SelectClassify16(const uint16_t* data, int32_t rows, int32_t width, int32_t rowBytes) {
  constexpr int kSlot = 75;
  if (width < 8)
    return Call<Classify16Routine>(selectSuite.saved[kSlot])(data, rows, width, rowBytes);
  int32_t maskClass = 0;
  const auto classify = [&]<class V, int kMost>(Blocks<V, kMost>) VX_INLINED {
    maskClass = Classify16<V>(data, rows, width, rowBytes & ~1);
  };
  // To fold the groups of a wide register takes as long as to take four wide registers.
  if (!WithWholeBlocks<uint16_t, Form::kBytes>(0, width / 4, classify))
    classify(Blocks<EightLanes>{width});
  return maskClass;
}

}  // namespace vantrix
