#include "host/outline.h"

#include <cmath>
#include <numbers>

#include "host/fill_array.h"

namespace vantrix::host {

Outline Star(int count, int step, double radius) {
  Outline outline;
  for (int i = 0; i < count; ++i) {
    const double angle = 2 * std::numbers::pi * i * step / count;
    outline.push_back({kOutlineSide * (0.5 + radius * std::sin(angle)),
                       kOutlineSide * (0.5 - radius * std::cos(angle))});
  }
  return outline;
}

Outline Circle(double radius) { return Star(120, 1, radius); }

std::vector<Outline> Letters() {
  constexpr double kWidth = 42, kTop = 100, kBottom = 156, kStem = 6;
  std::vector<Outline> letters;
  for (double x = 2; x + kWidth < kOutlineSide; x += kWidth) {
    const double w = kWidth - 4;
    letters.push_back({{x, kTop},
                       {x + kStem, kTop},
                       {x + w / 4 + kStem / 2, kBottom - 12},
                       {x + w / 2, kTop + 8},
                       {x + 3 * w / 4 - kStem / 2, kBottom - 12},
                       {x + w - kStem, kTop},
                       {x + w, kTop},
                       {x + 3 * w / 4, kBottom},
                       {x + w / 2, kTop + 24},
                       {x + w / 4, kBottom}});
  }
  return letters;
}

std::vector<Outline> Hatching() {
  constexpr double kApart = 4, kSlant = 40;
  std::vector<Outline> strokes;
  for (double x = kSlant; x + kApart < kOutlineSide; x += kApart)
    strokes.push_back({{x, 8},
                       {x + 1.5, 8},
                       {x + 1.5 - kSlant, kOutlineSide - 8},
                       {x - kSlant, kOutlineSide - 8}});
  return strokes;
}

void Rasterize(const Outline& outline, FillArray* array) {
  for (size_t i = 0; i < outline.size(); ++i) {
    const Point from = outline[i], to = outline[(i + 1) % outline.size()];
    for (int32_t row = 0; row < array->endRow - array->firstRow; ++row) {
      const double y = (row + 0.5) / kRowsPerPixel;
      if ((from.y <= y) == (to.y <= y)) continue;
      const double x = from.x + (y - from.y) / (to.y - from.y) * (to.x - from.x);
      AddCrossing(array, row, static_cast<uint32_t>(std::lround(x * kUnitsPerPixel)),
                  to.y < from.y);
    }
  }
}

}  // namespace vantrix::host
