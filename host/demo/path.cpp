#include <algorithm>

#include "host/demo/demo.h"
#include "host/demo/sheet.h"
#include "host/fill_array.h"
#include "host/outline.h"
#include "plugin/base/interface.h"

namespace vantrix::host {
namespace {

constexpr int kSide = kOutlineSide;  // of a tile, in pixels

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
    Rasterize(outline, block->Array());
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
