// Bodies of fill.h, for the units that instantiate them.
#pragma once

#include <cstring>

#include "common/blocks.h"
#include "suites/memory/fill.h"

namespace vantrix {
namespace {

// From this length on the C library's fill, with the processor's widest stores, is faster than
// stores of 16 bytes. Measured.
constexpr intptr_t kLibraryFillBytes = 192;

// Stores one value in every lane, over `count` values.
template <class Form, class T>
VX_INLINE void FillWith(T* destination, intptr_t count, T value) {
  WithBlocks<Form, T>(count, [=]<class Walk>(Walk walk) VX_INLINED {
    walk.ForEach([=]<class Place>(Place place) VX_INLINED {
      place.StoreTo(destination, Fill<typename Place::Register>(value));
    });
  });
}

}  // namespace

template <class Form>
void FillBytes(uint8_t* destination, int32_t bytes, uint32_t value) {
  if (bytes < kLibraryFillBytes)
    FillWith<Form>(destination, bytes, static_cast<uint8_t>(value));
  else
    std::memset(destination, static_cast<int>(value), static_cast<size_t>(bytes));
}

template <class Form>
void FillWords(uint16_t* destination, int32_t count, uint32_t value) {
  FillWith<Form>(destination, count, static_cast<uint16_t>(value));
}

}  // namespace vantrix
