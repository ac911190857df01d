// Pictures in a grid, each with a label under it.
#pragma once

#include <string>
#include <vector>

#include "host/demo/picture.h"

namespace vantrix::host {

// The picture averaged down to this width; one that is narrow enough stays as it is.
Picture Reduced(const Picture& picture, int width);

class Sheet {
 public:
  Sheet(int columns, int tileWidth) : columns_(columns), tileWidth_(tileWidth) {}

  // The picture is reduced to the width of a tile. A label may have several lines.
  void Add(const Picture& picture, std::string label);

  // Only a part of the picture, right of and below its middle, to show what a whole
  // picture's reduction would hide.
  void AddDetail(const Picture& picture, std::string label);

  Picture Draw() const;

 private:
  struct Tile {
    Picture picture;
    std::string label;
  };
  int columns_, tileWidth_;
  std::vector<Tile> tiles_;
};

}  // namespace vantrix::host
