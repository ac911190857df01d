#include "host/exercise/exercises.h"
#include "suites/blend/signatures.h"

namespace vantrix::host {
namespace {

// How an operand may lie to the destination.
enum class Lies { kApart, kApartOrSame, kAnyhow };

// An operand plane: mostly apart; now and then the destination itself, or somewhere
// over it with another stride.
PlaneView Operand(Scene& scene, Shape shape, PlaneView destination, Lies lies) {
  Choices& choose = scene.Choose();
  if (scene.IsMeasured() || lies == Lies::kApart || !choose.OneIn(4)) return scene.Bytes(shape);
  if (lies == Lies::kApartOrSame || choose.OneIn(4)) return destination;
  // Beyond 4096 samples an overlap has no defined result.
  if (shape.rows < 1 || shape.columns < 1 || shape.columns > 4096) return destination;
  return scene.Over(shape, destination);
}

PlaneView Destination(Scene& scene, Shape shape, Lies lies) {
  return lies == Lies::kAnyhow ? scene.RoomyBytes(shape) : scene.Bytes(shape);
}

template <Lies kLies>
void PlaneBlendScene(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = Destination(scene, shape, kLies), s = Operand(scene, shape, d, kLies);
  scene.Call<PlaneBlend>(routine, s.first, d.first, shape.rows, shape.columns, s.stride, d.stride);
}

template <Lies kLies>
void OpacityBlendScene(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = Destination(scene, shape, kLies), s = Operand(scene, shape, d, kLies);
  scene.Call<OpacityBlend>(routine, s.first, d.first, shape.rows, shape.columns, s.stride, d.stride,
                           scene.AnyByte());
}

template <Lies kLies>
void MaskedBlendScene(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = Destination(scene, shape, kLies);
  const PlaneView s = Operand(scene, shape, d, kLies), m = Operand(scene, shape, d, kLies);
  scene.Call<MaskedBlend>(routine, s.first, d.first, m.first, shape.rows, shape.columns, s.stride,
                          d.stride, m.stride);
}

template <Lies kLies>
void ColorMaskedBlendScene(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = Destination(scene, shape, kLies), m = Operand(scene, shape, d, kLies);
  scene.Call<ColorMaskedBlend>(routine, scene.AnyByte(), d.first, m.first, shape.rows,
                               shape.columns, d.stride, m.stride);
}

}  // namespace

void ExercisePlaneBlend(Routine routine, Scene& scene) {
  PlaneBlendScene<Lies::kApartOrSame>(routine, scene);
}
void ExerciseOpacityBlend(Routine routine, Scene& scene) {
  OpacityBlendScene<Lies::kApartOrSame>(routine, scene);
}
void ExerciseMaskedBlend(Routine routine, Scene& scene) {
  MaskedBlendScene<Lies::kApartOrSame>(routine, scene);
}
void ExerciseColorMaskedBlend(Routine routine, Scene& scene) {
  ColorMaskedBlendScene<Lies::kApartOrSame>(routine, scene);
}
void ExerciseOverlappingPlaneBlend(Routine routine, Scene& scene) {
  PlaneBlendScene<Lies::kAnyhow>(routine, scene);
}
void ExerciseOverlappingOpacityBlend(Routine routine, Scene& scene) {
  OpacityBlendScene<Lies::kAnyhow>(routine, scene);
}
void ExerciseOverlappingMaskedBlend(Routine routine, Scene& scene) {
  MaskedBlendScene<Lies::kAnyhow>(routine, scene);
}
void ExerciseOverlappingColorMaskedBlend(Routine routine, Scene& scene) {
  ColorMaskedBlendScene<Lies::kAnyhow>(routine, scene);
}

void ExercisePlanesBlend(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = scene.Bytes(shape);
  const PlaneView a = Operand(scene, shape, d, Lies::kApartOrSame);
  const PlaneView b = Operand(scene, shape, d, Lies::kApartOrSame);
  scene.Call<PlanesBlend>(routine, a.first, d.first, b.first, shape.rows, shape.columns, a.stride,
                          d.stride, b.stride);
}

void ExerciseInvertBlend(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = scene.Bytes(shape);
  const PlaneView a = Operand(scene, shape, d, Lies::kApartOrSame);
  const PlaneView b = Operand(scene, shape, d, Lies::kApartOrSame);
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
  const PlaneView p = scene.Bytes(shape), q = scene.Bytes(shape);
  scene.Call<ShareBlend>(routine, q.first, p.first, shape.rows, shape.columns, q.stride, p.stride);
}

void ExerciseMaskFirstBlend(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = scene.Bytes(shape), m = Operand(scene, shape, d, Lies::kApartOrSame);
  scene.Call<MaskFirstBlend>(routine, m.first, d.first, shape.rows, shape.columns, m.stride,
                             d.stride, scene.AnyByte());
}

}  // namespace vantrix::host
