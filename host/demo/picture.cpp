#include "host/demo/picture.h"

#include <cmath>
#include <fstream>

#include "host/paths.h"

#define STBI_WINDOWS_UTF8
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_WRITE_IMPLEMENTATION
#include <stb_image.h>
#include <stb_image_write.h>

namespace vantrix::host {

bool ReadPicture(const std::filesystem::path& path, Picture* picture, std::string* error) {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) {
    *error = "there is no picture " + TextOf(path);
    return false;
  }
  int width, height, channels;
  uint8_t* const pixels = stbi_load(TextOf(path).c_str(), &width, &height, &channels, 3);
  if (!pixels) {
    *error = TextOf(path) + " is not a picture that can be read (" + stbi_failure_reason() + ")";
    return false;
  }
  *picture = Picture(width, height);
  const size_t count = picture->planes[0].size();
  for (size_t i = 0; i < count; ++i)
    for (size_t c = 0; c < 3; ++c) picture->planes[c][i] = pixels[3 * i + c];
  stbi_image_free(pixels);
  return true;
}

bool WritePicture(const std::filesystem::path& path, const Picture& picture, std::string* error) {
  const size_t count = picture.planes[0].size();
  std::vector<uint8_t> pixels(count * 3);
  for (size_t i = 0; i < count; ++i)
    for (size_t c = 0; c < 3; ++c) pixels[3 * i + c] = picture.planes[c][i];
  // The encoder counts what it writes; what a full disk did not take shows in the stream.
  std::ofstream file(path, std::ios::binary);
  const auto write = [](void* to, void* bytes, int size) {
    static_cast<std::ofstream*>(to)->write(static_cast<const char*>(bytes), size);
  };
  if (stbi_write_png_to_func(write, &file, picture.width, picture.height, 3, pixels.data(),
                             picture.width * 3) &&
      file.flush())
    return true;
  *error = "cannot write " + TextOf(path);
  return false;
}

Picture GeneratedPicture(int width, int height) {
  Picture picture(width, height);
  const auto sample = [](double value) {
    return static_cast<uint8_t>(std::lround(255 * std::fmin(1, std::fmax(0, value))));
  };
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const double u = double(x) / width, v = double(y) / height;
      double red = 0.45 + 0.5 * v, green = 0.6 + 0.25 * v, blue = 0.95 - 0.15 * v;
      const double sun = std::exp(-60 * ((u - 0.7) * (u - 0.7) + (v - 0.3) * (v - 0.3)));
      red += sun, green += 0.8 * sun, blue += 0.3 * sun;
      for (int hill = 0; hill < 4; ++hill) {
        const double top = 0.45 + 0.13 * hill + 0.08 * std::sin(u * (5 + 3 * hill) + hill) +
                           0.01 * std::sin(u * (60 + 17 * hill));
        if (v < top) continue;
        const double shade = 0.5 - 0.1 * hill + 0.05 * std::sin(400 * u * v);
        red = 0.5 * shade, green = shade, blue = 0.4 * shade + 0.1;
      }
      const size_t at =
          static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x);
      picture.planes[0][at] = sample(red);
      picture.planes[1][at] = sample(green);
      picture.planes[2][at] = sample(blue);
    }
  }
  return picture;
}

}  // namespace vantrix::host
