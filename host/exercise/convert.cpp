#include "host/exercise/exercises.h"
#include "suites/convert/signatures.h"

namespace vantrix::host {
namespace {

// Returns the stride or an odd one that means the same: routines round strides down to even.
int32_t PerhapsOdd(Scene& scene, int32_t stride) {
  return stride | static_cast<int32_t>(scene.Choose().Below(2));
}

}  // namespace

void ExerciseRescaleWords(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView plane = scene.Words(shape);
  constexpr uint32_t kRanges[][2] = {{0xFFFF, 0x8000}, {0x8000, 0xFFFF}, {0xFFFF, 0x8000},
                                     {0x8000, 0xFFFF}, {0xFFFF, 0xFFFF}, {0x8000, 0x8000},
                                     {0xFF, 0xFFFF},   {0x1FFFF, 0x8000}};
  const auto& range = kRanges[scene.IsMeasured() ? 1 : scene.Choose().Below(8)];
  scene.Call<RescaleWordsRoutine>(routine, plane.Words(), range[0], range[1], shape.rows,
                                  shape.columns, PerhapsOdd(scene, plane.stride));
}

void ExerciseExpand8To16(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = scene.Words(shape);
  const PlaneView s = scene.PerhapsWithin(scene.Bytes(shape), shape, shape.columns, d, shape.rows,
                                          2 * shape.columns);
  scene.Call<Expand8To16Routine>(routine, s.first, d.Words(), shape.rows, shape.columns, s.stride,
                                 PerhapsOdd(scene, d.stride));
}

}  // namespace vantrix::host
