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

// False with the reason in *error.
bool ReadPicture(const std::filesystem::path& path, Picture* picture, std::string* error);
bool WritePicture(const std::filesystem::path& path, const Picture& picture, std::string* error);

// A picture made by rule: hills under a sky, where no photograph is at hand.
Picture GeneratedPicture(int width, int height);

}  // namespace vantrix::host
