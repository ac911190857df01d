// Single planes: with a border around them, and transposed.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace vantrix::host {

// A plane with its outermost samples repeated for `border` rows and columns around it.
template <class Sample>
struct BorderedOf {
  int width, height, border;
  std::vector<Sample> samples;

  BorderedOf(const std::vector<Sample>& plane, int w, int h, int b)
      : width(w), height(h), border(b) {
    for (int y = -b; y < h + b; ++y)
      for (int x = -b; x < w + b; ++x)
        samples.push_back(
            plane[static_cast<size_t>(std::clamp(y, 0, h - 1)) * static_cast<size_t>(w) +
                  static_cast<size_t>(std::clamp(x, 0, w - 1))]);
  }
  int32_t Stride() const { return width + 2 * border; }  // in samples
  const Sample* Row(int y) const { return samples.data() + (y + border) * Stride() + border; }
};
using Bordered = BorderedOf<uint8_t>;

template <class Sample>
std::vector<Sample> Transposed(const std::vector<Sample>& plane, int width, int height) {
  std::vector<Sample> turned(plane.size());
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      turned[static_cast<size_t>(x) * static_cast<size_t>(height) + static_cast<size_t>(y)] =
          plane[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)];
  return turned;
}

// The planes of a picture, in any depth.
template <class Sample>
using Planes = std::array<std::vector<Sample>, 3>;

template <class Sample>
Planes<Sample> Transposed(const Planes<Sample>& planes, int width, int height) {
  return {Transposed(planes[0], width, height), Transposed(planes[1], width, height),
          Transposed(planes[2], width, height)};
}

}  // namespace vantrix::host
