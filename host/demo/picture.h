// Pictures as planes, and their files.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vantrix::host {

// Red, green and blue planes of width x height samples, rows without a gap.
struct Picture {
  int width = 0, height = 0;
  std::array<std::vector<uint8_t>, 3> planes;

  Picture() = default;
  Picture(int w, int h) : width(w), height(h) {
    for (auto& plane : planes) plane.resize(static_cast<size_t>(w) * static_cast<size_t>(h));
  }
  uint8_t* Row(int plane, int y) {
    return planes[static_cast<size_t>(plane)].data() + intptr_t{y} * width;
  }
  const uint8_t* Row(int plane, int y) const {
    return planes[static_cast<size_t>(plane)].data() + intptr_t{y} * width;
  }
  friend bool operator==(const Picture&, const Picture&) = default;
};

struct Size {
  int width = 0, height = 0;
};

// Averaged down, so that it fits the size; one that fits stays as it is.
Picture Fitted(const Picture& picture, Size most);

// A part of the picture of this size, or of its own where that is smaller; its middle lies at
// these fractions of the whole.
Picture PartOf(const Picture& picture, Size size, double x, double y);

// One of more than `most` samples a plane is averaged down to so many; *whole is its own size.
// False with the reason in *error.
bool ReadPicture(const std::filesystem::path& path, int64_t most, Picture* picture, Size* whole,
                 std::string* error);
bool WritePicture(const std::filesystem::path& path, const Picture& picture, std::string* error);

// The file of a picture as an address that holds all of it: a PNG of a small one, else a JPEG.
std::string DataUrl(const Picture& picture);

// One whose planes are all the same.
Picture Gray(const std::vector<uint8_t>& plane, int width, int height);

// A picture made by rule: hills under a sky, where no photograph is at hand.
Picture GeneratedPicture(int width, int height);

}  // namespace vantrix::host
