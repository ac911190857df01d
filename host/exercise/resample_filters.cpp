#include "host/exercise/resample_filters.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>
#include <limits>

#include "host/exercise/exercises.h"
#include "suites/resample/signatures.h"

namespace vantrix::host {
namespace {

constexpr FilterSetting kUsual = {4, 1.7};

// Returns mostly what resizing uses; now and then a negative number, or so many that sums wrap.
int32_t ChooseTaps(Choices& choose, Shape shape) {
  const bool isSmall = shape.columns <= 100;
  switch (choose.Below(20)) {
    case 0:
      return choose.Between(-3, -1);
    case 1:
    case 2:
      return choose.Between(17, 40);
    case 3:
      return isSmall ? choose.Between(120, 130) : 9;
    case 4:
      return isSmall ? choose.Between(247, 262) : 11;
    case 5:
      return isSmall ? choose.Between(500, 700) : 13;
    default:
      return choose.Between(0, 16);
  }
}

// Fills in the weights of one phase, with lobes. They sum to 16384.
void FillOne(Choices& choose, int16_t* weights, int32_t taps) {
  int32_t rest = 16384;
  for (int32_t k = 0; k < taps; ++k) {
    const int32_t part = k + 1 < taps ? choose.Between(-9000, 12000) / (1 + taps / 4) : rest;
    weights[k] = static_cast<int16_t>(std::clamp(part, -9000, rest));
    rest -= weights[k];
  }
}

// Fills in such weights or extreme ones, which clamp and wrap, or leaves the noise in memory. When
// measured, sums are not clamped, as in most of a photograph.
void FillWeights(Scene& scene, int16_t* weights, int32_t phases, int32_t taps) {
  Choices& choose = scene.Choose();
  const uint32_t kind = choose.Below(6);
  for (int32_t p = 0; p < phases; ++p, weights += taps) {
    if (scene.IsMeasured()) {
      for (int32_t k = 0; k < taps; ++k)
        weights[k] = static_cast<int16_t>((16000 + 37 * (p ^ k)) / taps);
      continue;
    }
    if (kind >= 3) FillOne(choose, weights, taps);
    for (int32_t k = 0; k < taps && (kind == 1 || kind == 2); ++k)
      weights[k] = (kind == 1 ? choose.Below(2) : p % 2) ? SHRT_MAX : SHRT_MIN;
  }
}

// Returns the source item of the first tap of output item i of `count`, at most `last`: as in
// scaling or mirroring, or any, or one of the two ends.
int32_t FirstTap(Choices& choose, uint32_t kind, int32_t i, int32_t count, int32_t last,
                 double scale) {
  switch (kind) {
    case 1:
      return choose.Between(0, last);
    case 2:
      return 0;
    case 3:
      return last;
    case 4:
      return i % 2 ? last : 0;
    case 5:
      return static_cast<int32_t>(int64_t{count - 1 - i} * last / count);
    default:
      return std::clamp(static_cast<int32_t>(i / scale), 0, last);
  }
}

struct Lists {
  int32_t taps;
  int32_t* offsets;
  uint8_t* phases;
  int16_t* weights;
  int64_t origin;  // the source item that offset 0 names, counted from the first
};

// Makes the lists for `count` output items over `items` source items.
Lists MakeLists(Scene& scene, int32_t taps, int32_t count, int32_t items, double scale) {
  Choices& choose = scene.Choose();
  constexpr int32_t kPhaseCounts[] = {1, 2, 5, 16, 256};
  const int32_t phases = scene.IsMeasured() ? 16 : kPhaseCounts[choose.Below(5)];
  const bool isWeighted = taps > 0 && count > 0;
  Lists lists{taps, reinterpret_cast<int32_t*>(scene.Run(std::max(count, 0) * 4, 4).first),
              scene.Run(count).first,
              reinterpret_cast<int16_t*>(scene.Run(isWeighted ? phases * taps * 2 : 0, 2).first),
              0};
  if (isWeighted) FillWeights(scene, lists.weights, phases, taps);

  // The item that the source points to lies among the others, or so far away that the least or the
  // greatest offset is at the limit of 32 bits.
  const int32_t last = items - std::max(taps, 1), toFirst = taps / 2 - 1;
  const uint32_t place = scene.IsMeasured() ? 0 : choose.Below(6);
  if (place == 1) lists.origin = int64_t{toFirst} - INT_MIN;
  if (place == 2) lists.origin = int64_t{last} + toFirst - INT_MAX;
  if (place == 3) lists.origin = choose.Between(0, items);

  const uint32_t kind = scene.IsMeasured() ? 0 : choose.Below(10);
  for (int32_t i = 0; i < count; ++i) {
    const int32_t first = FirstTap(choose, kind, i, count, last, scale);
    lists.offsets[i] = static_cast<int32_t>(first + toFirst - lists.origin);
    lists.phases[i] = static_cast<uint8_t>(lists.phases[i] % phases);
  }
  return lists;
}

// Fills a plane with floats as in pictures, floats of any size, or special ones. All NaNs are the
// same one: no rule says which of several a sum becomes.
void FillFloats(Scene& scene, PlaneView view, Shape shape) {
  constexpr auto kInfinity = std::numeric_limits<float>::infinity();
  constexpr float kSpecial[] = {0.0f, -0.0f, 1.0f, kInfinity, -kInfinity, 1e-40f, 3e38f, -1e-38f};
  const uint32_t kind = scene.IsMeasured() ? 9 : scene.Choose().Below(10);
  for (int32_t y = 0; y < shape.rows; ++y) {
    const auto row = reinterpret_cast<float*>(view.first + intptr_t{y} * view.stride);
    for (int32_t x = 0; x < shape.columns; ++x) {
      const auto bits = std::bit_cast<uint32_t>(row[x]);
      if (kind == 0)
        row[x] = kSpecial[bits & 7];
      else if (kind > 2)
        row[x] = static_cast<float>(bits & 65535) / 65535;
      if (std::isnan(row[x])) row[x] = std::bit_cast<float>(0xFFC00000);
    }
  }
}

template <class Sample>
PlaneView SourcePlane(Scene& scene, Shape shape) {
  constexpr int32_t kSize = sizeof(Sample);
  const PlaneView view = scene.Plane(shape, shape.columns * kSize, kSize);
  if constexpr (std::is_same_v<Sample, float>) FillFloats(scene, view, shape);
  return view;
}

// Uses no pointer arithmetic, as the result may lie far from the samples.
template <class Sample>
const Sample* Moved(const uint8_t* from, int64_t bytes) {
  return reinterpret_cast<const Sample*>(reinterpret_cast<uintptr_t>(from) +
                                         static_cast<uint64_t>(bytes));
}

int32_t TapArgument(Scene& scene, int32_t taps) {
  return static_cast<int32_t>(scene.Narrow(static_cast<uint16_t>(taps)));
}

// Returns the number of source items for `count` output items: by the scale when measured, else
// any, often hardly more than the taps.
int32_t ChooseItems(Scene& scene, FilterSetting setting, int32_t count) {
  const int32_t least = std::max(setting.taps, 1);
  if (scene.IsMeasured()) return static_cast<int32_t>(count / setting.scale) + least;
  Choices& choose = scene.Choose();
  return least + (choose.OneIn(4) ? choose.Between(0, 20) : choose.Between(0, count + 30));
}

FilterSetting ChooseSetting(Scene& scene, Shape shape, FilterSetting measured) {
  if (scene.IsMeasured()) return measured;
  constexpr double kScales[] = {0.21, 0.34, 0.73, 1.0, 1.7, 5};
  const int32_t taps = ChooseTaps(scene.Choose(), shape);
  return {taps, kScales[scene.Choose().Below(6)]};
}

}  // namespace

template <class Sample>
void FilterHorizontally(Routine routine, Scene& scene, FilterSetting measured) {
  constexpr int32_t kSize = sizeof(Sample);
  const Shape shape = scene.ChooseShape();
  const PlaneView apart = scene.Plane(shape, shape.columns * kSize, kSize);
  const bool isEmpty = shape.rows < 1 || shape.columns < 1;
  const FilterSetting setting = ChooseSetting(scene, shape, measured);
  const int32_t count = isEmpty ? 0 : shape.columns;
  const int32_t items = ChooseItems(scene, setting, count);
  const PlaneView s = SourcePlane<Sample>(scene, {isEmpty ? 0 : shape.rows, items});
  const PlaneView d =
      scene.PerhapsWithin(apart, shape, shape.columns * kSize, s, shape.rows, items * kSize, kSize);
  const Lists lists = MakeLists(scene, setting.taps, count, items, setting.scale);
  // Rows are unsigned, so a negative number means many
  // rows. Only an empty width has no samples then.
  const auto rows = static_cast<uint32_t>(shape.columns < 1 ? shape.rows : std::max(shape.rows, 0));
  scene.Call<FilterHorizontal<Sample>>(routine, Moved<Sample>(s.first, lists.origin * kSize),
                                       reinterpret_cast<Sample*>(d.first), rows, shape.columns,
                                       lists.offsets, lists.phases, s.stride, d.stride,
                                       TapArgument(scene, lists.taps), lists.weights);
}

template <class Sample>
void FilterVertically(Routine routine, Scene& scene, FilterSetting measured) {
  constexpr int32_t kSize = sizeof(Sample);
  const Shape shape = scene.ChooseShape();
  const PlaneView apart = scene.Plane(shape, shape.columns * kSize, kSize);
  const bool isEmpty = shape.rows < 1 || shape.columns < 1;
  const FilterSetting setting = ChooseSetting(scene, shape, measured);
  const int32_t count = isEmpty ? 0 : shape.rows;
  const int32_t items = ChooseItems(scene, setting, count);
  const PlaneView s = SourcePlane<Sample>(scene, {isEmpty ? 0 : items, shape.columns});
  const PlaneView d = scene.PerhapsWithin(apart, shape, shape.columns * kSize, s, items,
                                          shape.columns * kSize, kSize);
  const Lists lists = MakeLists(scene, setting.taps, count, items, setting.scale);
  // The part of a stride beyond whole samples does not count.
  const auto stride = [&](int32_t bytes) {
    const int32_t more = scene.IsMeasured() ? 0 : scene.Choose().Below(kSize);
    return bytes < 0 ? bytes - more : bytes + more;
  };
  const int32_t sourceStride = stride(s.stride), destinationStride = stride(d.stride);
  scene.Call<FilterVertical<Sample>>(routine, Moved<Sample>(s.first, lists.origin * s.stride),
                                     reinterpret_cast<Sample*>(d.first), shape.rows, shape.columns,
                                     lists.offsets, lists.phases, sourceStride, destinationStride,
                                     TapArgument(scene, lists.taps), lists.weights);
}

template void FilterHorizontally<uint8_t>(Routine, Scene&, FilterSetting);
template void FilterHorizontally<uint16_t>(Routine, Scene&, FilterSetting);
template void FilterHorizontally<float>(Routine, Scene&, FilterSetting);
template void FilterVertically<uint8_t>(Routine, Scene&, FilterSetting);
template void FilterVertically<float>(Routine, Scene&, FilterSetting);

void ExerciseFilterHorizontal8(Routine routine, Scene& scene) {
  FilterHorizontally<uint8_t>(routine, scene, kUsual);
}
void ExerciseFilterHorizontal16(Routine routine, Scene& scene) {
  FilterHorizontally<uint16_t>(routine, scene, kUsual);
}
void ExerciseFilterHorizontal32F(Routine routine, Scene& scene) {
  FilterHorizontally<float>(routine, scene, kUsual);
}
void ExerciseFilterVertical8(Routine routine, Scene& scene) {
  FilterVertically<uint8_t>(routine, scene, kUsual);
}
void ExerciseFilterVertical32F(Routine routine, Scene& scene) {
  FilterVertically<float>(routine, scene, kUsual);
}

}  // namespace vantrix::host
