// The lane types that every pixel rule is written against.
//
// A rule is one function template over a vector V of lanes. The same text serves a single sample,
// a 16-byte register and a wider one. The operators, and the select `c ? a : b`, are those of the
// compiler's vector types, so a debugger prints V as an array of numbers.
//
// Lanes never promote to int: an 8-bit lane wraps modulo 256 in a vector of one as in a vector of
// sixteen. That is why all widths agree bit for bit. Arithmetic that may wrap belongs in unsigned
// lanes; in signed ones it is undefined, as for int.
//
// Keep vectors within one register. Wider ones compile, but
// GCC 12 splits a select on them into single lanes.
#pragma once

#include <immintrin.h>

#include <cstdint>
#include <type_traits>

// VX_INLINE marks a rule or a driver, which a debugger steps through, and VX_INLINED a lambda in
// one. VX_LANE marks a one-line operation on lanes, which a debugger steps over.
//
// Everything in a unit with its own instruction set is always inlined: the linker must never choose
// its copy of a function for an older processor. With a sanitizer's checks that takes a compiler
// minutes, so there functions may stay apart, under names that the linker does not see.
#if defined(VX_SANITIZED)
#define VX_INLINE [[clang::internal_linkage]] inline
#else
#define VX_INLINE [[gnu::always_inline]] inline
#endif
#define VX_INLINED __attribute__((always_inline))
#if defined(__clang__)
#define VX_LANE [[gnu::always_inline, gnu::nodebug]] inline
#else
#define VX_LANE [[gnu::always_inline, gnu::artificial]] inline
#endif

namespace vantrix {

template <class T, int kCount>
struct LanesOf {
  typedef T Type __attribute__((vector_size(sizeof(T) * kCount)));
};
template <class T, int kCount>
using Lanes = typename LanesOf<T, kCount>::Type;

template <class V>
using LaneOf = std::remove_cvref_t<decltype(V{}[0])>;
template <class V>
inline constexpr int kLaneCount = sizeof(V) / sizeof(LaneOf<V>);
template <class V>
inline constexpr bool kIsOneSample = kLaneCount<V> == 1;

// A register of a form, as lanes of a type.
template <class T, class Form>
using Register = Lanes<T, Form::kBytes == 1 ? 1 : Form::kBytes / int{sizeof(T)}>;
// A 16-byte group: a wider register is several of them side by side.
template <class T>
using Group = Lanes<T, 16 / sizeof(T)>;
// Half a register.
template <class V>
using HalfOf = Lanes<LaneOf<V>, kLaneCount<V> / 2>;
// A register of V's size, as lanes of another type.
template <class V>
using U8 = Lanes<uint8_t, sizeof(V)>;
template <class V>
using U16 = Lanes<uint16_t, sizeof(V) / 2>;
template <class V>
using U32 = Lanes<uint32_t, sizeof(V) / 4>;
template <class V>
using I32 = Lanes<int32_t, sizeof(V) / 4>;
template <class V>
using U64 = Lanes<uint64_t, sizeof(V) / 8>;
template <class V>
using F32 = Lanes<float, sizeof(V) / 4>;

// Load and store at any address, of any type.
template <class V>
VX_LANE V Load(const void* from) {
  V lanes;
  __builtin_memcpy(&lanes, from, sizeof lanes);
  return lanes;
}
template <class V>
VX_LANE void Store(void* to, V lanes) {
  __builtin_memcpy(to, &lanes, sizeof lanes);
}

// From aligned memory of our own, so that the load may be an instruction's operand.
template <class V, class T>
VX_LANE V LoadAligned(const T* from) {
  V lanes;
  __builtin_memcpy(&lanes, __builtin_assume_aligned(from, sizeof lanes), sizeof lanes);
  return lanes;
}

// Stores only the first kBytes bytes.
template <int kBytes, class V>
VX_LANE void StoreFirst(void* to, V lanes) {
  static_assert(kBytes <= int{sizeof(V)});
  __builtin_memcpy(to, &lanes, kBytes);
}

VX_LANE uint64_t LoadU64(const uint8_t* from) {
  uint64_t word;
  __builtin_memcpy(&word, from, sizeof word);
  return word;
}

// One value in every lane.
template <class V>
VX_LANE V Fill(LaneOf<V> value) {
  return V{} + value;
}

// The same bits seen as lanes of another type.
template <class To, class From>
VX_LANE To As(From lanes) {
  static_assert(sizeof(To) == sizeof(From));
  return reinterpret_cast<To>(lanes);
}

// The address `bytes` bytes further on: of the same column in another row.
template <class T>
VX_LANE T* Below(T* row, intptr_t bytes) {
  using Byte = std::conditional_t<std::is_const_v<T>, const uint8_t, uint8_t>;
  return reinterpret_cast<T*>(reinterpret_cast<Byte*>(row) + bytes);
}

// Bytes from an address to the first boundary of kBytes bytes at it or after it, and to the first
// one after it.
template <int kBytes>
VX_LANE intptr_t ToBoundary(const void* at) {
  return -reinterpret_cast<uintptr_t>(at) & (kBytes - 1);
}
template <int kBytes>
VX_LANE intptr_t ToNextBoundary(const void* at) {
  return kBytes - static_cast<intptr_t>(reinterpret_cast<uintptr_t>(at) & (kBytes - 1));
}

}  // namespace vantrix
