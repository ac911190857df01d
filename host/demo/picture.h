// Pictures as planes, and their files.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vantrix::host {

// Red, green and blue planes of width x height samples, without gaps between rows.
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

// Returns a picture averaged down to fit the size. A picture that fits stays as it is.
Picture Fitted(const Picture& picture, Size most);

// Returns a part of the picture, of this size or of the picture's if that is smaller. The middle of
// the part lies at these fractions of the whole.
Picture PartOf(const Picture& picture, Size size, double x, double y);

// Reads a picture. If it has more than `most` samples per plane, it is averaged down to that many.
// *whole is its original size. Returns false with the reason in *error if it cannot be read.
bool ReadPicture(const std::filesystem::path& path, int64_t most, Picture* picture, Size* whole,
                 std::string* error);
bool WritePicture(const std::filesystem::path& path, const Picture& picture, std::string* error);

// Returns a data URL that holds a picture's whole file: a PNG if it is small, else a JPEG.
std::string DataUrl(const Picture& picture);

// Returns a picture whose planes are all this one.
Picture Gray(const std::vector<uint8_t>& plane, int width, int height);

// Returns a picture made by rule, for use without a photograph: hills under a sky.
Picture GeneratedPicture(int width, int height);

}  // namespace vantrix::host
