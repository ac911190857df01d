// Pictures in a grid, each with a label under it; a row is
// as high as its highest picture and label.
#pragma once

#include <string>
#include <vector>

#include "host/demo/picture.h"

namespace vantrix::host {

class Sheet {
 public:
  Sheet(size_t columns, int tileWidth) : columns_(columns), tileWidth_(tileWidth) {}

  // Adds a picture, reduced to fit a square tile. The label
  // goes under it, on as many lines as needed.
  void Add(const Picture& picture, const std::string& label);

  Picture Draw() const;

 private:
  struct Tile {
    Picture picture;
    std::string label;
  };
  size_t columns_;
  int tileWidth_;
  std::vector<Tile> tiles_;
};

}  // namespace vantrix::host
