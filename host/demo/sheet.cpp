#include "host/demo/sheet.h"

#include <algorithm>

#define STB_EASY_FONT_IMPLEMENTATION
#include <stb_easy_font.h>

namespace vantrix::host {
namespace {

constexpr int kMargin = 12, kScale = 2, kPaper = 32, kInk = 230;

void Paste(const Picture& picture, int left, int top, Picture* onto) {
  for (int c = 0; c < 3; ++c)
    for (int y = 0; y < picture.height; ++y)
      std::copy_n(picture.Row(c, y), picture.width, onto->Row(c, top + y) + left);
}

// The font comes as rectangles of whole units.
void Write(const std::string& text, int left, int top, Picture* onto) {
  struct Corner {
    float x, y, z;
    uint8_t color[4];
  };
  std::vector<Corner> corners(4 * 64 * (text.size() + 1));
  std::string copy = text;
  const int rectangles = stb_easy_font_print(0, 0, copy.data(), nullptr, corners.data(),
                                             static_cast<int>(corners.size() * sizeof(Corner)));
  for (int i = 0; i < rectangles; ++i) {
    const Corner &first = corners[4 * static_cast<size_t>(i)],
                 &last = corners[4 * static_cast<size_t>(i) + 2];
    for (int y = int(first.y) * kScale; y < int(last.y) * kScale; ++y)
      for (int x = int(first.x) * kScale; x < int(last.x) * kScale; ++x)
        if (left + x < onto->width && top + y < onto->height)
          for (int c = 0; c < 3; ++c) onto->Row(c, top + y)[left + x] = kInk;
  }
}

int TextHeight(const std::string& text) {
  return kScale * 12 * static_cast<int>(1 + std::count(text.begin(), text.end(), '\n'));
}

}  // namespace

Picture Reduced(const Picture& picture, int width) {
  if (picture.width <= width) return picture;
  const int height = std::max(1, picture.height * width / picture.width);
  Picture reduced(width, height);
  for (int c = 0; c < 3; ++c) {
    for (int y = 0; y < height; ++y) {
      const int top = y * picture.height / height;
      const int bottom = std::max(top + 1, (y + 1) * picture.height / height);
      for (int x = 0; x < width; ++x) {
        const int left = x * picture.width / width;
        const int right = std::max(left + 1, (x + 1) * picture.width / width);
        int sum = 0;
        for (int v = top; v < bottom; ++v)
          for (int u = left; u < right; ++u) sum += picture.Row(c, v)[u];
        reduced.Row(c, y)[x] = static_cast<uint8_t>(sum / ((bottom - top) * (right - left)));
      }
    }
  }
  return reduced;
}

void Sheet::Add(const Picture& picture, std::string label) {
  tiles_.push_back({Reduced(picture, tileWidth_), std::move(label)});
}

void Sheet::AddDetail(const Picture& picture, std::string label) {
  const int width = std::max(1, picture.width / 4), height = std::max(1, picture.height / 4);
  Picture detail(width, height);
  for (int c = 0; c < 3; ++c)
    for (int y = 0; y < height; ++y)
      std::copy_n(picture.Row(c, picture.height * 38 / 100 + y) + picture.width * 58 / 100, width,
                  detail.Row(c, y));
  Add(detail, std::move(label));
}

Picture Sheet::Draw() const {
  int pictureHeight = 0, textHeight = 0;
  for (const Tile& tile : tiles_) {
    pictureHeight = std::max(pictureHeight, tile.picture.height);
    textHeight = std::max(textHeight, TextHeight(tile.label));
  }
  const int rows = (static_cast<int>(tiles_.size()) + columns_ - 1) / columns_;
  const int stepX = tileWidth_ + kMargin, stepY = pictureHeight + textHeight + kMargin;
  Picture sheet(columns_ * stepX + kMargin, rows * stepY + kMargin);
  for (auto& plane : sheet.planes) std::fill(plane.begin(), plane.end(), uint8_t{kPaper});
  for (int i = 0; i < static_cast<int>(tiles_.size()); ++i) {
    const Tile& tile = tiles_[static_cast<size_t>(i)];
    const int left = kMargin + i % columns_ * stepX, top = kMargin + i / columns_ * stepY;
    Paste(tile.picture, left, top, &sheet);
    Write(tile.label, left, top + pictureHeight + 4, &sheet);
  }
  return sheet;
}

}  // namespace vantrix::host
