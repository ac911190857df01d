// The windows of the horizontal pass: what is loaded for the columns of a set at once, and
// how each column's unit is picked from it.
//
//   kIsShared            whether it is one for the set, or one for each group of the register
//   kBytes               bytes of a window
//   kHeld                at most so many units of a column are picked from one
//   kRegisters           registers of the plan that Pick needs
//   Plan(words, places)  writes them, of how many bytes behind the window's first each column
//                        starts; false where Pick cannot be
//   LoadFrom(row, words) the window; words[0] is where it starts, or words[4 i] that of group i
//   Pick(window, words, i)
//                        unit i of each column behind the one that starts there
//
// S is the register of the set, kUnit the bytes of a unit. One of two bytes is spread over
// two 16-bit lanes.
#pragma once

#include "common/gather.h"
#include "common/look_up.h"

namespace vantrix {

// The places of a unit's bytes, the first of which is at `place`, for operations on bytes.
template <int kUnit, class S>
VX_INLINE Bytes<S> BytePlaces(S place) {
  const S twice = place | place << 16;
  return As<Bytes<S>>(kUnit == 2 ? twice + 0x80018000 : (twice | twice << 8) + 0x03020100);
}

// 16 bytes for the four columns of a group, or the same 16 for all groups.
template <class S, int kUnit, bool kShared>
struct GroupWindow {
  static constexpr bool kIsShared = kShared;
  static constexpr int kBytes = 16, kHeld = kUnit == 2 ? 2 : 1, kRegisters = kHeld;

  VX_INLINE static bool Plan(uint32_t* words, S places) {
    for (int i = 0; i < kRegisters; ++i)
      Store(words + kLaneCount<S> * i,
            BytePlaces<kUnit>(S(places + static_cast<uint32_t>(kUnit * i))));
    return true;
  }
  VX_INLINE static Bytes<S> LoadFrom(const uint8_t* row, const uint32_t* words) {
    if constexpr (kShared)
      return LoadIntoGroups<Bytes<S>>(row + words[0]);
    else
      return LoadGroups<Bytes<S>>([=](int group) VX_INLINED { return row + words[4 * group]; });
  }
  VX_INLINE static S Pick(Bytes<S> window, const uint32_t* words, int i) {
    return As<S>(Shuffle(window, LoadAligned<Bytes<S>>(words + kLaneCount<S> * i)));
  }
};

// A register, where its bytes can be looked up anywhere in it.
template <class S, int kUnit>
struct ByteWindow {
  static constexpr bool kIsShared = true;
  static constexpr int kBytes = sizeof(S), kHeld = 4, kRegisters = 1;

  VX_INLINE static bool Plan(uint32_t* words, S places) {
    Store(words, BytePlaces<kUnit>(places));
    return true;
  }
  VX_INLINE static Bytes<S> LoadFrom(const uint8_t* row, const uint32_t* words) {
    return Load<Bytes<S>>(row + words[0]);
  }
  VX_INLINE static S Pick(Bytes<S> window, const uint32_t* words, int i) {
    const auto places = LoadAligned<Bytes<S>>(words) + static_cast<uint8_t>(kUnit * i);
    if constexpr (kUnit == 2)
      return As<S>(LookUpEven(window, places));
    else
      return As<S>(LookUp(window, places));
  }
};

// One register or two, for units that are 32-bit lanes, where these can be looked up.
template <class S, int kCount>
struct FloatWindow {
  struct Registers {
    S of[kCount];
  };
  static constexpr bool kIsShared = true;
  static constexpr int kBytes = kCount * sizeof(S), kHeld = kBytes == 32 ? 2 : 4, kRegisters = 1;

  VX_INLINE static bool Plan(uint32_t* words, S places) {
    Store(words, places >> 2);
    return true;
  }
  VX_INLINE static Registers LoadFrom(const uint8_t* row, const uint32_t* words) {
    return Load<Registers>(row + words[0]);
  }
  VX_INLINE static S Pick(Registers window, const uint32_t* words, int i) {
    const S places = LoadAligned<S>(words) + static_cast<uint32_t>(i);
    if constexpr (kCount == 1)
      return LookUp(window.of[0], places);
    else
      return LookUp(window.of[0], window.of[1], places);
  }
};

}  // namespace vantrix
