#include <algorithm>
#include <cmath>
#include <numbers>

#include "host/demo/demo.h"
#include "host/demo/sheet.h"
#include "host/fill_array.h"
#include "plugin/base/interface.h"

namespace vantrix::host {
namespace {

constexpr int kSide = 256;  // of a tile, in pixels
constexpr int kRowsPerPixel = 4;
constexpr int kUnitsPerPixel = 256;  // of positions

// Outlines are closed, with straight edges.
struct Point {
  double x, y;
};
using Outline = std::vector<Point>;

// Returns every `step`th of `count` points on a circle around the middle of a tile.
Outline Star(int count, int step, double radius) {
  Outline outline;
  for (int i = 0; i < count; ++i) {
    const double angle = 2 * std::numbers::pi * i * step / count;
    outline.push_back({kSide * (0.5 + radius * std::sin(angle)),  //
                       kSide * (0.5 - radius * std::cos(angle))});
  }
  return outline;
}
Outline Circle(double radius) { return Star(120, 1, radius); }

// Adds the crossings of an outline with each row's middle.
void Rasterize(const Outline& outline, FillArrayBlock* block) {
  for (size_t i = 0; i < outline.size(); ++i) {
    const Point from = outline[i], to = outline[(i + 1) % outline.size()];
    for (int row = 0; row < block->RowCount(); ++row) {
      const double y = (row + 0.5) / kRowsPerPixel;
      if ((from.y <= y) == (to.y <= y)) continue;
      const double x = from.x + (y - from.y) / (to.y - from.y) * (to.x - from.x);
      AddCrossing(block->Array(), row, static_cast<uint32_t>(std::lround(x * kUnitsPerPixel)),
                  to.y < from.y);
    }
  }
}

// Returns the middle of the picture, as large as a tile. Samples of a small picture are repeated.
Picture Thumbnail(const Picture& picture) {
  const int square = std::min(picture.width, picture.height), side = std::max(square, kSide);
  Picture middle(side, side);
  for (int c = 0; c < 3; ++c)
    for (int y = 0; y < side; ++y)
      for (int x = 0; x < side; ++x)
        middle.Row(c, y)[x] =
            picture.Row(c, (picture.height - square) / 2 +
                               y * square / side)[(picture.width - square) / 2 + x * square / side];
  return Fitted(middle, {kSide, kSide});
}

// Returns the picture where the rows are covered, and paper elsewhere.
Picture Show(const Picture& picture, const FillArrayBlock& block) {
  constexpr int kFull = kRowsPerPixel * kUnitsPerPixel, kPaper = 238;
  Picture shown = picture;
  for (int y = 0; y < kSide; ++y) {
    std::vector<int> covered(kSide);  // units of each pixel, over its rows
    for (int row = y * kRowsPerPixel; row < (y + 1) * kRowsPerPixel; ++row) {
      const auto spans = block.Spans(row);
      for (size_t i = 0; i + 1 < spans.size(); i += 2)
        for (uint32_t at = spans[i]; at < spans[i + 1];) {
          const uint32_t pixel = at / kUnitsPerPixel;
          const uint32_t end = std::min(spans[i + 1], (pixel + 1) * kUnitsPerPixel);
          covered[pixel] += static_cast<int>(end - at);
          at = end;
        }
    }
    for (int c = 0; c < 3; ++c)
      for (int x = 0; x < kSide; ++x) {
        uint8_t& sample = shown.Row(c, y)[x];
        const int part = covered[static_cast<size_t>(x)];
        sample = static_cast<uint8_t>((sample * part + kPaper * (kFull - part)) / kFull);
      }
  }
  return shown;
}

}  // namespace

// Draws a star that crosses itself over a ring of two circles,
// with each operation and either rule; first the star alone.
void DemonstratePaths(Session& session) {
  const Picture picture = Thumbnail(session.Photo());
  const auto fold = [&](FillArrayBlock* block, const Outline& outline, uint32_t operation,
                        uint32_t byWinding) {
    Rasterize(outline, block);
    session.Run<FillArrayBlock>(kPath, 24, block, [&](Routine routine, FillArrayBlock& target) {
      Call<FillArrayRoutine>(routine)(target.Array(), operation, byWinding);
    });
  };
  const FillArrayBlock empty(0, kSide * kRowsPerPixel, 34);
  FillArrayBlock ring = empty;
  fold(&ring, Circle(0.36), kUnion, 0);
  fold(&ring, Circle(0.16), kSubtract, 0);

  const Outline star = Star(7, 3, 0.48);
  const char* const kNames[] = {"united", "subtracted", "intersected", "exclusive or"};
  session.Explain(
      "An outline is a list of crossings in each row, four rows to a pixel. The routine folds the "
      "crossings of a new outline into the covered spans of those before: here a star that crosses "
      "itself, into a ring. Covered is where the photograph shows.");
  const Picture nothing = Show(picture, empty), ringShown = Show(picture, ring);
  session.ShowChange("A ring", "A circle united with nothing, and a smaller one subtracted.",
                     nothing, ringShown);
  Sheet sheet(5, kSide);
  for (const uint32_t byWinding : {1, 0}) {
    FillArrayBlock alone = empty;
    fold(&alone, star, kUnion, byWinding);
    const std::string rule = byWinding ? "non-zero winding" : "even-odd";
    sheet.Add(Show(picture, alone), rule);
    session.ShowChange("The star alone, " + rule, {}, nothing, Show(picture, alone));
    for (const uint32_t operation : {kUnion, kSubtract, kIntersect, kExclusiveOr}) {
      FillArrayBlock both = ring;
      fold(&both, star, operation, byWinding);
      sheet.Add(Show(picture, both), kNames[operation]);
      session.ShowChange(std::string("Ring and star ") + kNames[operation] + ", " + rule, {},
                         ringShown, Show(picture, both));
    }
  }
  session.Save("paths.png", sheet.Draw());
}

}  // namespace vantrix::host
