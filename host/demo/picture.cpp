#include "host/demo/picture.h"

#include <algorithm>
#include <cmath>
#include <fstream>

#include "host/paths.h"

#define STBI_WINDOWS_UTF8
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_WRITE_IMPLEMENTATION
#include <stb_image.h>
#include <stb_image_write.h>

namespace vantrix::host {

namespace {

// Averages a plane of size `from` down to size `to`. The source samples are `step` apart.
std::vector<uint8_t> Averaged(const uint8_t* samples, int step, Size from, Size to) {
  std::vector<uint8_t> averages;
  averages.reserve(static_cast<size_t>(to.width) * static_cast<size_t>(to.height));
  const auto edge = [](int index, int whole, int parts) {
    return static_cast<int>(int64_t{index} * whole / parts);
  };
  for (int y = 0; y < to.height; ++y) {
    const int top = edge(y, from.height, to.height), bottom = edge(y + 1, from.height, to.height);
    for (int x = 0; x < to.width; ++x) {
      const int left = edge(x, from.width, to.width), right = edge(x + 1, from.width, to.width);
      int64_t sum = 0;
      for (int v = top; v < bottom; ++v)
        for (int u = left; u < right; ++u) sum += samples[(int64_t{v} * from.width + u) * step];
      averages.push_back(static_cast<uint8_t>(sum / (int64_t{bottom - top} * (right - left))));
    }
  }
  return averages;
}

Size Scaled(Size size, double scale) {
  const auto scaled = [=](int length) {
    return std::clamp(static_cast<int>(std::lround(length * scale)), 1, length);
  };
  return {scaled(size.width), scaled(size.height)};
}

using Bytes = std::vector<uint8_t>;

Bytes Interleaved(const Picture& picture) {
  Bytes pixels(picture.planes[0].size() * 3);
  for (size_t c = 0; c < 3; ++c)
    for (size_t i = 0; i < picture.planes[c].size(); ++i) pixels[3 * i + c] = picture.planes[c][i];
  return pixels;
}

std::string InBase64(const Bytes& bytes) {
  constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (size_t i = 0; i < bytes.size(); i += 3) {
    const size_t count = std::min<size_t>(3, bytes.size() - i);
    uint32_t group = 0;
    for (size_t k = 0; k < 3; ++k) group = group << 8 | (k < count ? bytes[i + k] : 0);
    for (size_t k = 0; k < 4; ++k) text += k <= count ? kDigits[group >> (18 - 6 * k) & 63] : '=';
  }
  return text;
}

}  // namespace

Picture Fitted(const Picture& picture, Size most) {
  const Size size{picture.width, picture.height};
  if (size.width <= most.width && size.height <= most.height) return picture;
  const Size fitted = Scaled(size, std::min(double(most.width) / size.width,  //
                                            double(most.height) / size.height));
  Picture reduced(fitted.width, fitted.height);
  for (size_t c = 0; c < 3; ++c)
    reduced.planes[c] = Averaged(picture.planes[c].data(), 1, size, fitted);
  return reduced;
}

Picture PartOf(const Picture& picture, Size size, double x, double y) {
  Picture part(std::min(size.width, picture.width), std::min(size.height, picture.height));
  const auto start = [](double middle, int length, int whole) {
    return std::clamp(static_cast<int>(middle * whole) - length / 2, 0, whole - length);
  };
  const int left = start(x, part.width, picture.width);
  const int top = start(y, part.height, picture.height);
  for (int c = 0; c < 3; ++c)
    for (int row = 0; row < part.height; ++row)
      std::copy_n(picture.Row(c, top + row) + left, part.width, part.Row(c, row));
  return part;
}

bool ReadPicture(const std::filesystem::path& path, int64_t most, Picture* picture, Size* whole,
                 std::string* error) {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) {
    *error = "there is no picture " + TextOf(path);
    return false;
  }
  int channels;
  uint8_t* const pixels =
      stbi_load(TextOf(path).c_str(), &whole->width, &whole->height, &channels, 3);
  const bool isEmpty = pixels && (whole->width < 1 || whole->height < 1);
  if (!pixels || isEmpty) {
    *error = TextOf(path) + " is not a picture that can be read (" +
             (isEmpty ? "a side below 1" : stbi_failure_reason()) + ")";
    return false;
  }
  const double scale = std::sqrt(double(most) / (double(whole->width) * whole->height));
  const Size size = scale < 1 ? Scaled(*whole, scale) : *whole;
  *picture = Picture(size.width, size.height);
  for (size_t c = 0; c < 3; ++c) picture->planes[c] = Averaged(pixels + c, 3, *whole, size);
  stbi_image_free(pixels);
  return true;
}

bool WritePicture(const std::filesystem::path& path, const Picture& picture, std::string* error) {
  const Bytes pixels = Interleaved(picture);
  // The encoder does not notice a full disk; the stream's state shows it.
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

std::string DataUrl(const Picture& picture) {
  constexpr int kSmall = 64 * 64, kQuality = 85;
  const Bytes pixels = Interleaved(picture);
  const bool isSmall = picture.width * picture.height <= kSmall;
  Bytes file;
  const auto append = [](void* to, void* bytes, int size) {
    const auto* const first = static_cast<const uint8_t*>(bytes);
    static_cast<Bytes*>(to)->insert(static_cast<Bytes*>(to)->end(), first, first + size);
  };
  if (isSmall)
    stbi_write_png_to_func(append, &file, picture.width, picture.height, 3, pixels.data(),
                           picture.width * 3);
  else
    stbi_write_jpg_to_func(append, &file, picture.width, picture.height, 3, pixels.data(),
                           kQuality);
  return std::string("data:image/") + (isSmall ? "png" : "jpeg") + ";base64," + InBase64(file);
}

Picture Gray(const std::vector<uint8_t>& plane, int width, int height) {
  Picture picture(width, height);
  picture.planes.fill(plane);
  return picture;
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
