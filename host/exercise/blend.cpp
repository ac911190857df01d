#include "host/exercise/exercises.h"
#include "suites/blend/signatures.h"

namespace vantrix::host {
namespace {

// Returns an operand plane: mostly apart from the destination; now and then the destination itself,
// or a plane over it, perhaps with another stride.
PlaneView Operand(Scene& scene, Shape shape, PlaneView destination) {
  Choices& choose = scene.Choose();
  if (scene.IsMeasured() || !choose.OneIn(4)) return scene.Bytes(shape);
  if (choose.OneIn(4) || shape.rows < 1 || shape.columns < 1) return destination;
  return scene.Over(shape, destination);
}

PlaneView Mask(Scene& scene, Shape shape, PlaneView destination) {
  const PlaneView mask = Operand(scene, shape, destination);
  if (!scene.HasDiscs()) return mask;
  for (int32_t y = 0; y < shape.rows; ++y)
    for (int32_t x = 0; x < shape.columns; ++x) {
      const double down = (y + 0.5) / shape.rows - 0.5, right = (x + 0.5) / shape.columns - 0.5;
      mask.first[intptr_t{y} * mask.stride + x] = down * down + right * right < 0.16 ? 255 : 0;
    }
  return mask;
}

}  // namespace

void ExercisePlaneBlend(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = scene.RoomyBytes(shape), s = Operand(scene, shape, d);
  scene.Call<PlaneBlend>(routine, s.first, d.first, shape.rows, shape.columns, s.stride, d.stride);
}

void ExerciseOpacityBlend(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = scene.RoomyBytes(shape), s = Operand(scene, shape, d);
  scene.Call<OpacityBlend>(routine, s.first, d.first, shape.rows, shape.columns, s.stride, d.stride,
                           scene.AnyByte());
}

void ExerciseMaskedBlend(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = scene.RoomyBytes(shape);
  const PlaneView s = Operand(scene, shape, d), m = Mask(scene, shape, d);
  scene.Call<MaskedBlend>(routine, s.first, d.first, m.first, shape.rows, shape.columns, s.stride,
                          d.stride, m.stride);
}

void ExerciseColorMaskedBlend(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = scene.RoomyBytes(shape), m = Mask(scene, shape, d);
  scene.Call<ColorMaskedBlend>(routine, scene.AnyByte(), d.first, m.first, shape.rows,
                               shape.columns, d.stride, m.stride);
}

void ExercisePlanesBlend(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = scene.RoomyBytes(shape);
  const PlaneView a = Operand(scene, shape, d);
  const PlaneView b = Operand(scene, shape, d);
  scene.Call<PlanesBlend>(routine, a.first, d.first, b.first, shape.rows, shape.columns, a.stride,
                          d.stride, b.stride);
}

void ExerciseInvertBlend(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = scene.RoomyBytes(shape);
  const PlaneView a = Operand(scene, shape, d);
  const PlaneView b = Operand(scene, shape, d);
  const auto flag = [&] {
    return scene.Narrow(
        static_cast<uint8_t>(scene.Choose().OneIn(2) ? scene.Choose().Below(256) : 0));
  };
  const uint32_t first = flag(), second = flag(), result = flag();
  scene.Call<InvertBlend>(routine, a.first, b.first, d.first, shape.rows, shape.columns, a.stride,
                          b.stride, d.stride, first, second, result);
}

void ExerciseShareBlend(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView p = scene.RoomyBytes(shape), q = Operand(scene, shape, p);
  scene.Call<ShareBlend>(routine, q.first, p.first, shape.rows, shape.columns, q.stride, p.stride);
}

void ExerciseMaskFirstBlend(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = scene.RoomyBytes(shape), m = Mask(scene, shape, d);
  scene.Call<MaskFirstBlend>(routine, m.first, d.first, shape.rows, shape.columns, m.stride,
                             d.stride, scene.AnyByte());
}

}  // namespace vantrix::host
