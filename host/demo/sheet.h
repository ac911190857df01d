// Pictures on one sheet: tiles in a grid, with a line of text under each.
#pragma once

#include <string>
#include <vector>

#include "host/demo/picture.h"

namespace vantrix::host {

class Sheet {
 public:
  // Tiles of at most this size, row by row.
  Sheet(int columns, int tileWidth, int tileHeight)
      : columns_(columns), tileWidth_(tileWidth), tileHeight_(tileHeight) {}

  // Centred in its place; what is larger is cut.
  void Add(const std::string& label, Picture tile);

  // All tiles so far, on white.
  Picture Draw() const;

 private:
  struct Tile {
    std::string label;
    Picture picture;
  };
  int columns_, tileWidth_, tileHeight_;
  std::vector<Tile> tiles_;
};

// Writes a line of ASCII text in dark grey; x and y are those of its top left corner. What
// lies outside the picture is cut.
void DrawText(Picture* picture, int x, int y, const std::string& text);
int TextWidth(const std::string& text);

// A square out of the middle of a picture, brought to side x side samples.
Picture Thumbnail(const Picture& picture, int side);

}  // namespace vantrix::host
