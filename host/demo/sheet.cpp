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

// Breaks text into lines no longer than the width, as far as the words allow.
std::string Wrapped(const std::string& text, int width) {
  std::string wrapped, line;
  for (size_t i = 0; i <= text.size();) {
    const size_t end = std::min(text.find_first_of(" \n", i), text.size());
    const std::string word = text.substr(i, end - i);
    std::string longer = line;
    if (!line.empty()) longer += ' ';
    longer += word;
    if (!line.empty() && kScale * stb_easy_font_width(longer.data()) > width) {
      wrapped += line + '\n';
      line = word;
    } else {
      line = longer;
    }
    if (end < text.size() && text[end] == '\n') {
      wrapped += line + '\n';
      line.clear();
    }
    i = end + 1;
  }
  return wrapped + line;
}

}  // namespace

void Sheet::Add(const Picture& picture, const std::string& label) {
  tiles_.push_back({Fitted(picture, {tileWidth_, tileWidth_}), Wrapped(label, tileWidth_)});
}

Picture Sheet::Draw() const {
  struct Row {
    int top, pictureHeight, textHeight;
  };
  std::vector<Row> rows;
  int top = kMargin;
  for (size_t i = 0; i < tiles_.size(); ++i) {
    if (i % columns_ == 0) rows.push_back({top, 0, 0});
    Row& row = rows.back();
    row.pictureHeight = std::max(row.pictureHeight, tiles_[i].picture.height);
    row.textHeight = std::max(row.textHeight, TextHeight(tiles_[i].label));
    top = row.top + row.pictureHeight + row.textHeight + kMargin;
  }
  const int stepX = tileWidth_ + kMargin;
  Picture sheet(static_cast<int>(columns_) * stepX + kMargin, top);
  for (auto& plane : sheet.planes) std::fill(plane.begin(), plane.end(), uint8_t{kPaper});
  for (size_t i = 0; i < tiles_.size(); ++i) {
    const Row& row = rows[i / columns_];
    const int left = kMargin + static_cast<int>(i % columns_) * stepX;
    Paste(tiles_[i].picture, left, row.top, &sheet);
    Write(tiles_[i].label, left, row.top + row.pictureHeight + 4, &sheet);
  }
  return sheet;
}

}  // namespace vantrix::host
