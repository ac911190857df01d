// Bodies of copy.h, for the units that instantiate them.
#pragma once

#include <cstring>
#include <type_traits>

#include "common/forms.h"
#include "suites/memory/copy.h"

namespace vantrix {
namespace {

// Up to this length a copy is a few registers, all loaded before the first is stored, so that
// source and destination may overlap.
constexpr intptr_t kShort = 64;
using Piece = Lanes<uint8_t, 16>;

template <int kHalf>
VX_INLINE void CopyEnds(const uint8_t* source, uint8_t* destination, intptr_t count) {
  StoreEnds<kHalf>(destination, count, LoadEnds<Piece, kHalf>(source, count));
}

// Copies the first kRegisters and the last kRegisters registers, which may overlap.
template <int kRegisters>
VX_INLINE void CopyRegisters(const uint8_t* source, uint8_t* destination, intptr_t count) {
  Piece first[kRegisters], last[kRegisters];
  for (int i = 0; i < kRegisters; ++i) {
    first[i] = Load<Piece>(source + 16 * i);
    last[i] = Load<Piece>(source + count - 16 * (i + 1));
  }
  for (int i = 0; i < kRegisters; ++i) {
    Store(destination + 16 * i, first[i]);
    Store(destination + count - 16 * (i + 1), last[i]);
  }
}

VX_INLINE void CopyShort(const uint8_t* source, uint8_t* destination, intptr_t count) {
  if (count > 32) {
    CopyRegisters<2>(source, destination, count);
  } else if (count >= 16) {
    CopyRegisters<1>(source, destination, count);
  } else if (count >= 8) {
    CopyEnds<8>(source, destination, count);
  } else if (count >= 4) {
    CopyEnds<4>(source, destination, count);
  } else if (count >= 2) {
    CopyEnds<2>(source, destination, count);
  } else if (count == 1) {
    *destination = *source;
  }
}

}  // namespace

template <class Form>
void CopyBytes(const uint8_t* source, uint8_t* destination, int32_t bytes) {
  const intptr_t count = bytes;
  if (count <= kShort) return CopyShort(source, destination, count);
  const auto length = static_cast<uintptr_t>(bytes);
  const auto ahead = reinterpret_cast<uintptr_t>(destination) - reinterpret_cast<uintptr_t>(source);
  // The C library's copy chooses the widest code for the
  // processor, and takes overlapping bytes too.
  if (!std::is_same_v<Form, Sse2> || count < 128 || ahead < length || -ahead < length) {
    std::memmove(destination, source, length);
    return;
  }
  // Blocks start at a boundary of the destination. The first and the last register overlap them.
  using V = Register<uint8_t, Form>;
  constexpr intptr_t kBytes = sizeof(V);
  const V last = Load<V>(source + count - kBytes);
  Store(destination, Load<V>(source));
  intptr_t x = ToNextBoundary<kBytes>(destination);
  for (; x + 128 <= count; x += 128)
    for (int i = 0; i < 128; i += kBytes) Store(destination + x + i, Load<V>(source + x + i));
  for (; x + kBytes <= count; x += kBytes) Store(destination + x, Load<V>(source + x));
  Store(destination + count - kBytes, last);
}

}  // namespace vantrix
