// Arithmetic on 8-bit samples as the defining sentences state it, and the walk over a plane.
#pragma once

#include <cstdint>
#include <type_traits>

namespace vantrix::host {

// Returns n / d rounded to nearest, halves away from zero; d is positive.
constexpr int Rounded(int n, int d) { return (2 * n + (n < 0 ? -d : d)) / (2 * d); }

constexpr int Product(int a, int b) { return Rounded(a * b, 255); }

// Calls sample(row, column) for every place, in order.
template <class Sample>
void ForEachSample(int32_t rows, int32_t columns, Sample sample) {
  for (int32_t row = 0; row < rows; ++row)
    for (int32_t column = 0; column < columns; ++column) sample(row, column);
}

template <class T>
T& At(T* first, int32_t row, int32_t column, int32_t stride) {
  using Byte = std::conditional_t<std::is_const_v<T>, const uint8_t, uint8_t>;
  return reinterpret_cast<T*>(reinterpret_cast<Byte*>(first) + intptr_t{row} * stride)[column];
}

}  // namespace vantrix::host
