#include "host/exercise/exercises.h"
#include "suites/blend/signatures.h"

namespace vantrix::host {
namespace {

// Now and then an operand is the destination itself.
PlaneView SourceOf(Scene& scene, Shape shape, PlaneView destination) {
  return !scene.IsMeasured() && scene.Choose().OneIn(8) ? destination : scene.Bytes(shape);
}

}  // namespace

void ExerciseMaskedBlend(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = scene.Bytes(shape);
  const PlaneView s = SourceOf(scene, shape, d), m = SourceOf(scene, shape, d);
  scene.Call<MaskedBlend>(routine, s.first, d.first, m.first, shape.rows, shape.columns, s.stride,
                          d.stride, m.stride);
}

void ExerciseColorMaskedBlend(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = scene.Bytes(shape), m = SourceOf(scene, shape, d);
  scene.Call<ColorMaskedBlend>(routine, scene.AnyByte(), d.first, m.first, shape.rows,
                               shape.columns, d.stride, m.stride);
}

}  // namespace vantrix::host
