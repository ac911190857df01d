#include "host/demo/sheet.h"

#include <stb_easy_font.h>

#include <algorithm>
#include <cmath>

namespace vantrix::host {
namespace {

constexpr int kScale = 2, kTextHeight = 12 * kScale, kGap = 16;
constexpr uint8_t kPaper = 255, kInk = 64;

void FillRect(Picture* picture, int left, int top, int right, int bottom, uint8_t value) {
  left = std::clamp(left, 0, picture->width), right = std::clamp(right, left, picture->width);
  top = std::clamp(top, 0, picture->height), bottom = std::clamp(bottom, top, picture->height);
  for (int c = 0; c < 3; ++c)
    for (int y = top; y < bottom; ++y)
      std::fill(picture->Row(c, y) + left, picture->Row(c, y) + right, value);
}

}  // namespace

void DrawText(Picture* picture, int x, int y, const std::string& text) {
  // Letters come as rectangles of four corners each, of one font unit a dot.
  struct Corner {
    float x, y, z;
    uint8_t color[4];
  };
  std::vector<Corner> corners(text.size() * 68 + 4);
  std::string copy = text;
  const int rectangles = stb_easy_font_print(0, 0, copy.data(), nullptr, corners.data(),
                                             static_cast<int>(corners.size() * sizeof(Corner)));
  const auto at = [](int origin, float units) {
    return origin + static_cast<int>(std::lround(units * kScale));
  };
  for (size_t i = 0; i < static_cast<size_t>(rectangles); ++i) {
    const Corner &first = corners[4 * i], &opposite = corners[4 * i + 2];
    FillRect(picture, at(x, first.x), at(y, first.y), at(x, opposite.x), at(y, opposite.y), kInk);
  }
}

int TextWidth(const std::string& text) {
  std::string copy = text;
  return stb_easy_font_width(copy.data()) * kScale;
}

Picture Thumbnail(const Picture& picture, int side) {
  const int square = std::min(picture.width, picture.height);
  const int left = (picture.width - square) / 2, top = (picture.height - square) / 2;
  Picture small(side, side);
  const auto edge = [&](int i) { return i * square / side; };
  for (int c = 0; c < 3; ++c)
    for (int y = 0; y < side; ++y)
      for (int x = 0; x < side; ++x) {
        // The mean of the samples that the small one covers, of which there is one at least.
        const int endY = std::max(edge(y + 1), edge(y) + 1);
        const int endX = std::max(edge(x + 1), edge(x) + 1);
        int sum = 0, count = 0;
        for (int v = edge(y); v < endY; ++v)
          for (int u = edge(x); u < endX; ++u, ++count) sum += picture.Row(c, top + v)[left + u];
        small.Row(c, y)[x] = static_cast<uint8_t>((sum + count / 2) / count);
      }
  return small;
}

void Sheet::Add(const std::string& label, Picture tile) {
  tiles_.push_back({label, std::move(tile)});
}

Picture Sheet::Draw() const {
  const int count = static_cast<int>(tiles_.size());
  const int rows = (count + columns_ - 1) / columns_;
  const int stepX = tileWidth_ + kGap, stepY = tileHeight_ + kTextHeight + kGap;
  Picture sheet(columns_ * stepX + kGap, rows * stepY + kGap);
  FillRect(&sheet, 0, 0, sheet.width, sheet.height, kPaper);
  for (int i = 0; i < count; ++i) {
    const auto& [label, tile] = tiles_[static_cast<size_t>(i)];
    const int left = kGap + i % columns_ * stepX, top = kGap + i / columns_ * stepY;
    const int width = std::min(tile.width, tileWidth_), height = std::min(tile.height, tileHeight_);
    const int x = left + (tileWidth_ - width) / 2, y = top + (tileHeight_ - height) / 2;
    for (int c = 0; c < 3; ++c)
      for (int row = 0; row < height; ++row)
        std::copy_n(tile.Row(c, row + (tile.height - height) / 2) + (tile.width - width) / 2, width,
                    sheet.Row(c, y + row) + x);
    DrawText(&sheet, left + (tileWidth_ - TextWidth(label)) / 2, top + tileHeight_ + kGap / 2,
             label);
  }
  return sheet;
}

}  // namespace vantrix::host
