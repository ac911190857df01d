// The windows of the horizontal pass: what is loaded at once for all columns of a set, and how each
// column's units are picked from it.
//
//   kIsShared            whether the set has one window, or each group of the register its own
//   kBytes               bytes of a window
//   kHeld                the most units of a column that are picked from one window
//   kRegisters           registers of the plan that Pick needs
//   Plan(words, starts)  writes them; starts are how many bytes after the start of its window each
//                        column starts. Returns false if Pick cannot serve them
//   LoadFrom(row, words) loads the window, which starts at words[0]; that of group i at words[4 i]
//   Pick(window, words, i)
//                        returns unit i of each column, counted from where the column starts
//
// S is the register of the set, kUnit the bytes of a unit.
// A unit of two bytes is widened to two 16-bit lanes.
#pragma once

#include <concepts>

#include "common/look_up.h"
#include "suites/resample/gather.h"

namespace vantrix {

template <class T, class S>
concept WindowOf = requires(uint32_t* words, S starts, const uint8_t* row) {
  { T::kIsShared } -> std::convertible_to<bool>;
  { T::kBytes + T::kHeld + T::kRegisters } -> std::convertible_to<int>;
  { T::Plan(words, starts) } -> std::same_as<bool>;
  { T::Pick(T::LoadFrom(row, words), words, 0) } -> std::same_as<S>;
};

// The indices of a unit's bytes, from that of its first byte, for Shuffle and LookUp.
template <int kUnit, class S>
VX_INLINE U8<S> ByteIndices(S first) {
  const S twice = first | first << 16;
  return As<U8<S>>(kUnit == 2 ? twice + 0x80018000 : (twice | twice << 8) + 0x03020100);
}

// 16 bytes for the four columns of a group, or the same 16 bytes for all groups.
template <class S, int kUnit, bool kShared>
struct GroupWindow {
  static constexpr bool kIsShared = kShared;
  static constexpr int kBytes = 16, kHeld = kUnit == 2 ? 2 : 1, kRegisters = kHeld;

  VX_INLINE static bool Plan(uint32_t* words, S starts) {
    for (int i = 0; i < kRegisters; ++i)
      Store(words + kLaneCount<S> * i,
            ByteIndices<kUnit>(S(starts + static_cast<uint32_t>(kUnit * i))));
    return true;
  }
  VX_INLINE static U8<S> LoadFrom(const uint8_t* row, const uint32_t* words) {
    if constexpr (kShared)
      return LoadIntoGroups<U8<S>>(row + words[0]);
    else
      return LoadGroups<U8<S>>([=](int group) VX_INLINED { return row + words[4 * group]; });
  }
  VX_INLINE static S Pick(U8<S> window, const uint32_t* words, int i) {
    return As<S>(Shuffle(window, LoadAligned<U8<S>>(words + kLaneCount<S> * i)));
  }
};

// A whole register, from anywhere in which bytes can be looked up.
template <class S, int kUnit>
struct ByteWindow {
  static constexpr bool kIsShared = true;
  static constexpr int kBytes = sizeof(S), kHeld = 4, kRegisters = 1;

  VX_INLINE static bool Plan(uint32_t* words, S starts) {
    Store(words, ByteIndices<kUnit>(starts));
    return true;
  }
  VX_INLINE static U8<S> LoadFrom(const uint8_t* row, const uint32_t* words) {
    return Load<U8<S>>(row + words[0]);
  }
  VX_INLINE static S Pick(U8<S> window, const uint32_t* words, int i) {
    const auto indices = LoadAligned<U8<S>>(words) + static_cast<uint8_t>(kUnit * i);
    if constexpr (kUnit == 2)
      return As<S>(LookUpEven(window, indices));
    else
      return As<S>(LookUp(window, indices));
  }
};

// One register or two, from anywhere in which 32-bit lanes
// can be looked up, for units of that size.
template <class S, int kCount>
struct FloatWindow {
  struct Registers {
    S of[kCount];
  };
  static constexpr bool kIsShared = true;
  static constexpr int kBytes = kCount * sizeof(S), kHeld = kBytes == 32 ? 2 : 4, kRegisters = 1;

  VX_INLINE static bool Plan(uint32_t* words, S starts) {
    Store(words, starts >> 2);
    return true;
  }
  VX_INLINE static Registers LoadFrom(const uint8_t* row, const uint32_t* words) {
    return Load<Registers>(row + words[0]);
  }
  VX_INLINE static S Pick(Registers window, const uint32_t* words, int i) {
    const S indices = LoadAligned<S>(words) + static_cast<uint32_t>(i);
    if constexpr (kCount == 1)
      return LookUp(window.of[0], indices);
    else
      return LookUp(window.of[0], window.of[1], indices);
  }
};

}  // namespace vantrix
