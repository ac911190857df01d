// Outlines, and the crossings of their edges with the rows of a fill array.
#pragma once

#include <vector>

#include "suites/path/signatures.h"

namespace vantrix::host {

// The side of the square in which outlines lie, in pixels; rows
// of a fill array to a pixel; and units of positions to a pixel.
inline constexpr int kOutlineSide = 256;
inline constexpr int kRowsPerPixel = 4;
inline constexpr int kUnitsPerPixel = 256;

// Outlines are closed, with straight edges.
struct Point {
  double x, y;
};
using Outline = std::vector<Point>;

// Returns every `step`th of `count` points on a circle around the square's middle. The radius is a
// part of its side.
Outline Star(int count, int step, double radius);
Outline Circle(double radius);
// Returns a line of letters W.
std::vector<Outline> Letters();
// Returns slanted strokes, one beside the other.
std::vector<Outline> Hatching();

// Adds the crossings of an outline with each row's middle.
void Rasterize(const Outline& outline, FillArray* array);

}  // namespace vantrix::host
