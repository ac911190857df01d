// Every served slot as its exercise has it, and the settings that matter besides.
#include <algorithm>
#include <iterator>

#include "bench/bench.h"
#include "host/catalog.h"
#include "host/exercise/exercises.h"
#include "host/exercise/resample_filters.h"
#include "suites/blend/signatures.h"
#include "suites/filter/signatures.h"
#include "suites/resample/signatures.h"

namespace vantrix::bench {
namespace {

using host::PlaneView, host::Scene, host::Shape;

// A mask as masks are: a full disc, and nothing around it.
void MaskedByDisc(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = scene.Bytes(shape), s = scene.Bytes(shape), m = scene.Bytes(shape);
  for (int32_t y = 0; y < shape.rows; ++y)
    for (int32_t x = 0; x < shape.columns; ++x) {
      const double down = (y + 0.5) / shape.rows - 0.5, right = (x + 0.5) / shape.columns - 0.5;
      m.first[intptr_t{y} * m.stride + x] = down * down + right * right < 0.16 ? 255 : 0;
    }
  scene.Call<MaskedBlend>(routine, s.first, d.first, m.first, shape.rows, shape.columns, s.stride,
                          d.stride, m.stride);
}

template <int32_t kTaps>
void Convolve(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = scene.Bytes(shape);
  const PlaneView s = scene.Bytes({shape.rows + kTaps - 1, shape.columns});
  struct {
    ConvolutionKernel kernel;
    uint32_t more[kTaps];
  } weighted{};
  weighted.kernel.radius = kTaps / 2;
  std::fill_n(weighted.kernel.weights, kTaps, 256 / kTaps);
  scene.Call<ConvolveRoutine>(routine, s.first + (kTaps / 2) * s.stride, d.first,
                              static_cast<uint32_t>(shape.rows), shape.columns, s.stride, d.stride,
                              &weighted.kernel);
}

// The shape is the source's.
template <int32_t kRows>
void AverageRows(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const int32_t rows = shape.rows / kRows;
  const PlaneView d = scene.Bytes({rows, shape.columns}), s = scene.Bytes(shape);
  const std::vector<int32_t> counts(static_cast<size_t>(rows), kRows);
  scene.Call<BoxAverageRows>(routine, s.first, d.first, rows, shape.columns, counts.data(),
                             s.stride, d.stride);
}

template <class Sample, int kTaps, int kPercent>
void Horizontally(Routine routine, Scene& scene) {
  host::FilterHorizontally<Sample>(routine, scene, {kTaps, kPercent / 100.0});
}
template <class Sample, int kTaps, int kPercent>
void Vertically(Routine routine, Scene& scene) {
  host::FilterVertically<Sample>(routine, scene, {kTaps, kPercent / 100.0});
}

const std::vector<Shape> kAllPlanes(std::begin(kPlanes), std::end(kPlanes));
const std::vector<Shape> kSmallPlanes(std::begin(kPlanes), std::end(kPlanes) - 1);

std::vector<Shape> UsualShapes(SuiteIndex suite, uint16_t slot) {
  if (suite == kFilter && (slot == 188 || slot == 189)) return {{1, 128}};  // one block
  // Floats are four times the bytes; the widest are left out.
  const bool isFloat = (suite == kFilter && slot > 190) || (suite == kResample && slot > 25);
  std::vector<Shape> shapes = isFloat ? kSmallPlanes : kAllPlanes;
  shapes.insert(shapes.end(), std::begin(kShortRows), std::end(kShortRows));
  return shapes;
}

std::vector<Shape> Runs() {
  std::vector<Shape> runs;
  for (const int32_t bytes :
       {16, 31, 64, 100, 128, 200, 256, 500, 1000, 4000, 16000, 64000, 1 << 18, 1 << 20, 1 << 24})
    runs.push_back({1, bytes});
  return runs;
}

template <class Sample, int... kTaps>
void AddFilters(std::vector<Case>& cases, uint16_t horizontal, uint16_t vertical,
                const std::vector<Shape>& shapes) {
  const auto add = [&](uint16_t slot, int taps, const char* scale, host::Exercise* exercise) {
    if (slot == 0) return;
    cases.push_back({kResample, slot, std::to_string(taps) + " taps x" + scale, exercise, shapes});
  };
  (add(horizontal, kTaps, "0.73", Horizontally<Sample, kTaps, 73>), ...);
  (add(horizontal, kTaps, "1.7", Horizontally<Sample, kTaps, 170>), ...);
  if constexpr (!std::is_same_v<Sample, uint16_t>)
    (add(vertical, kTaps, "0.73", Vertically<Sample, kTaps, 73>), ...);
}

}  // namespace

std::vector<Case> Cases() {
  std::vector<Case> cases;
  for (const host::SuiteEntry& suite : host::Catalog()) {
    if (suite.index == kPath) continue;  // folds its input away: see fill_array.cpp
    for (const host::Reference& reference : suite.references)
      cases.push_back({suite.index, reference.slot, "", reference.exercise,
                       UsualShapes(suite.index, reference.slot)});
  }
  for (const uint16_t slot : std::initializer_list<uint16_t>{2, 7, 10, 22, 47, 50})
    cases.push_back({kBlend, slot, "disc", MaskedByDisc, kAllPlanes});
  cases.push_back({kFilter, 28, "3 taps", Convolve<3>, kAllPlanes});
  cases.push_back({kFilter, 28, "7 taps", Convolve<7>, kAllPlanes});
  cases.push_back({kResample, 3, "of 2", AverageRows<2>, kAllPlanes});
  cases.push_back({kResample, 3, "of 3", AverageRows<3>, kAllPlanes});
  cases.push_back({kResample, 3, "of 7", AverageRows<7>, kAllPlanes});
  AddFilters<uint8_t, 2, 4, 6>(cases, 5, 6, kAllPlanes);
  AddFilters<uint16_t, 4, 6>(cases, 13, 0, kAllPlanes);
  AddFilters<float, 4, 6>(cases, 26, 27, kSmallPlanes);
  cases.push_back({kMemory, 0, "run", host::ExerciseCopyBytes, Runs()});
  cases.push_back({kMemory, 3, "run", host::ExerciseFillBytes, Runs()});
  return cases;
}

}  // namespace vantrix::bench
