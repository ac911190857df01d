// Every served slot as its exercise runs it, and other settings that matter.
#include <algorithm>
#include <iterator>
#include <thread>

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
  const int32_t rows = std::max(shape.rows / kRows, 1);
  const PlaneView d = scene.Bytes({rows, shape.columns});
  const PlaneView s = scene.Bytes({std::max(shape.rows, kRows), shape.columns});
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
const std::vector<Shape> kCachedPlanes(std::begin(kPlanes), std::end(kPlanes) - 1);

std::vector<Shape> UsualShapes(SuiteIndex suite, uint16_t slot) {
  if (suite == kFilter && (slot == 188 || slot == 189)) return {{1, 128}};  // one block
  // Floats are four times the bytes; the biggest planes are left out.
  const bool isFloat = (suite == kFilter && slot > 190) || (suite == kResample && slot > 25);
  std::vector<Shape> shapes = isFloat ? kCachedPlanes : kAllPlanes;
  shapes.insert(shapes.end(), std::begin(kShortRows), std::end(kShortRows));
  shapes.insert(shapes.end(), std::begin(kCalls), std::end(kCalls));
  return shapes;
}

std::vector<Shape> Runs() {
  std::vector<Shape> runs;
  for (const int32_t bytes :
       {16, 31, 64, 100, 128, 200, 256, 500, 1000, 4000, 16000, 64000, 1 << 18, 1 << 20, 1 << 24})
    runs.push_back({1, bytes});
  return runs;
}

// Returns the shapes of a slot, with short rows and calls only for its first setting.
std::vector<Shape> ShapesOfSetting(const std::vector<Case>& cases, SuiteIndex suite,
                                   uint16_t slot) {
  std::vector<Shape> shapes = UsualShapes(suite, slot);
  for (const Case& other : cases)
    if (other.suite == suite && other.slot == slot)
      std::erase_if(shapes, [](Shape s) { return IsShortRow(s) || IsCall(s); });
  return shapes;
}

void AddSetting(std::vector<Case>& cases, SuiteIndex suite, uint16_t slot,
                const std::string& setting, host::Exercise* exercise, host::Measured how = {}) {
  cases.push_back({suite, slot, setting, exercise, ShapesOfSetting(cases, suite, slot), how});
}

template <class Sample, int... kTaps>
void AddFilters(std::vector<Case>& cases, uint16_t horizontal, uint16_t vertical) {
  const auto add = [&](uint16_t slot, int taps, const char* scale, host::Exercise* exercise) {
    if (slot != 0)
      AddSetting(cases, kResample, slot, std::to_string(taps) + " taps x" + scale, exercise);
  };
  (add(horizontal, kTaps, "0.73", Horizontally<Sample, kTaps, 73>), ...);
  (add(horizontal, kTaps, "1.7", Horizontally<Sample, kTaps, 170>), ...);
  if constexpr (!std::is_same_v<Sample, uint16_t>)
    (add(vertical, kTaps, "0.73", Vertically<Sample, kTaps, 73>), ...);
}

// Blends with source and destination side by side in one picture: their address ranges interleave,
// but they share no sample.
void MultiplyTiles(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView picture = scene.Bytes({shape.rows, 2 * shape.columns});
  scene.Call<PlaneBlend>(routine, picture.first + shape.columns, picture.first, shape.rows,
                         shape.columns, picture.stride, picture.stride);
}

void DeviateTiles(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView picture = scene.Bytes({shape.rows + 2, 2 * shape.columns + 2});
  const auto first = picture.first + picture.stride;
  scene.Call<DeviationRoutine>(routine, first + shape.columns + 1, first, shape.rows, shape.columns,
                               picture.stride, picture.stride);
}

// Whether a slot is measured in its own settings instead of as its exercise runs it.
bool HasSettings(SuiteIndex suite, uint16_t slot) {
  constexpr uint16_t kFilters[] = {3, 5, 6, 13, 26, 27};
  if (suite == kFilter) return slot == 28;
  return suite == kResample && std::ranges::find(kFilters, slot) != std::end(kFilters);
}

// Whether a case is measured misaligned too. The place of planes matters to kernels that load and
// store all of a row in registers.
bool IsMeasuredMisaligned(const Case& job) {
  if (job.shapes.size() == 1 || job.setting == "disc" || job.setting == "tiles") return false;
  const auto isIn = [&](std::initializer_list<uint16_t> slots) {
    return std::ranges::find(slots, job.slot) != slots.end();
  };
  return job.suite == kBlend || job.suite == kConvert || (job.suite == kFilter && isIn({12, 28})) ||
         (job.suite == kResample && isIn({3, 6, 24, 27}));
}

// What is also measured in planes that no cache holds and in two threads: some cases that wait for
// memory, and some that compute.
struct Name {
  SuiteIndex suite;
  uint16_t slot;
  const char* setting;
};
constexpr Name kBeyondCaches[] = {
    {kBlend, 2, ""},        {kBlend, 24, ""},
    {kBlend, 28, ""},       {kBlend, 30, ""},
    {kBlend, 47, ""},       {kBlend, 66, ""},
    {kFilter, 12, ""},      {kFilter, 28, "7 taps"},
    {kMemory, 1, ""},       {kMemory, 4, ""},
    {kResample, 3, "of 2"}, {kResample, 5, "4 taps x0.73"},
    {kSelect, 26, ""},      {kResample, 6, "4 taps x0.73"},
    {kSelect, 33, ""},      {kSelect, 35, ""},
};
bool IsMeasuredBeyondCaches(const Case& job) {
  return std::ranges::any_of(kBeyondCaches, [&](const Name& name) {
    return job.suite == name.suite && job.slot == name.slot && job.setting == name.setting;
  });
}

}  // namespace

std::vector<Case> Cases() {
  std::vector<Case> cases;
  for (const host::SuiteEntry& suite : host::Catalog()) {
    if (suite.index == kPath) continue;  // it consumes its input: see fill_array.cpp
    for (const host::Reference& reference : suite.references)
      if (!HasSettings(suite.index, reference.slot))
        AddSetting(cases, suite.index, reference.slot, "", reference.exercise);
  }
  for (const uint16_t slot : std::initializer_list<uint16_t>{2, 7, 10, 22, 47, 50})
    AddSetting(cases, kBlend, slot, "disc", host::ExerciseMaskedBlend, {.hasDiscs = true});
  AddSetting(cases, kBlend, 24, "tiles", MultiplyTiles);
  AddSetting(cases, kFilter, 12, "tiles", DeviateTiles);
  AddSetting(cases, kFilter, 28, "3 taps", Convolve<3>);
  AddSetting(cases, kFilter, 28, "7 taps", Convolve<7>);
  AddSetting(cases, kResample, 3, "of 2", AverageRows<2>);
  AddSetting(cases, kResample, 3, "of 3", AverageRows<3>);
  AddSetting(cases, kResample, 3, "of 7", AverageRows<7>);
  AddFilters<uint8_t, 4, 2, 6>(cases, 5, 6);
  AddFilters<uint16_t, 4, 6>(cases, 13, 0);
  AddFilters<float, 4, 6>(cases, 26, 27);
  for (size_t i = 0, count = cases.size(); i < count; ++i) {
    if (!IsMeasuredMisaligned(cases[i])) continue;
    Case job = cases[i];
    job.setting += job.setting.empty() ? "misaligned" : " misaligned";
    job.shapes = kCachedPlanes;
    job.how.isMisaligned = true;
    cases.push_back(job);
  }
  for (size_t i = 0, count = cases.size(); i < count; ++i) {
    if (!IsMeasuredBeyondCaches(cases[i])) continue;
    cases[i].shapes.push_back(kHuge);
    if (std::thread::hardware_concurrency() < 2) continue;
    Case job = cases[i];
    job.setting += job.setting.empty() ? "two threads" : " two threads";
    job.shapes = {kPlanes[1], kPlanes[2]};
    job.threads = 2;
    cases.push_back(job);
  }
  cases.push_back({kMemory, 0, "run", host::ExerciseCopyBytes, Runs()});
  cases.push_back({kMemory, 3, "run", host::ExerciseFillBytes, Runs()});
  return cases;
}

}  // namespace vantrix::bench
