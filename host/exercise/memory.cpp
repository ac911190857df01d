#include "host/exercise/exercises.h"
#include "suites/memory/signatures.h"

namespace vantrix::host {
namespace {

int32_t RunLength(Scene& scene) {
  if (scene.IsPinned()) return scene.ChooseShape().columns;
  if (scene.IsMeasured()) return scene.ChooseShape().rows * scene.ChooseShape().columns;
  Choices& choose = scene.Choose();
  switch (choose.Below(4)) {
    case 0:
      return choose.Between(-2, 20);
    case 1:
      return choose.Between(100, 300);
    case 2:
      return choose.Between(1000, 9000);
    default:
      return choose.Between(1, 140);
  }
}

// Returns a rectangle, often without gaps between rows: it is then one run.
PlaneView RectOf(Scene& scene, Shape shape, int32_t rowBytes, int32_t unit) {
  PlaneView view = scene.Plane(shape, rowBytes, unit);
  if (scene.Choose().OneIn(2) && view.stride > 0) view.stride = rowBytes;
  return view;
}

// Fills a plane with equal bytes, except perhaps one. Returns the value to look for.
uint32_t Plant(Scene& scene, PlaneView view, Shape shape) {
  Choices& choose = scene.Choose();
  const auto value = static_cast<uint8_t>(choose.Below(256));
  for (int32_t y = 0; y < shape.rows && shape.columns > 0; ++y)
    std::memset(view.first + intptr_t{y} * view.stride, value, static_cast<size_t>(shape.columns));
  if (!scene.IsMeasured() && shape.rows > 0 && shape.columns > 0 && choose.OneIn(2)) {
    const int32_t y = choose.Between(0, shape.rows - 1), x = choose.Between(0, shape.columns - 1);
    view.first[intptr_t{y} * view.stride + x] ^= static_cast<uint8_t>(1 << choose.Below(8));
  }
  return scene.Narrow(value);
}

}  // namespace

void ExerciseCopyBytes(Routine routine, Scene& scene) {
  const int32_t bytes = RunLength(scene);
  if (scene.IsMeasured() || !scene.Choose().OneIn(3) || bytes < 1) {
    const PlaneView s = scene.Run(bytes), d = scene.Run(bytes);
    scene.Call<CopyBytesRoutine>(routine, s.first, d.first, bytes);
    return;
  }
  // The runs overlap, in either direction, by any part of the length.
  const int32_t apart = scene.Choose().Between(0, bytes + 8);
  const PlaneView both = scene.Run(bytes + apart);
  const int32_t isForward = scene.Choose().Between(0, 1);
  scene.Call<CopyBytesRoutine>(routine, both.first + apart * isForward,
                               both.first + apart * (1 - isForward), bytes);
}

void ExerciseCopyRect(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView s = RectOf(scene, shape, shape.columns, 1);
  const PlaneView d = scene.Choose().OneIn(16) ? s : RectOf(scene, shape, shape.columns, 1);
  scene.Call<CopyRectRoutine>(routine, s.first, d.first, shape.rows, shape.columns, s.stride,
                              d.stride);
}

void ExerciseFillBytes(Routine routine, Scene& scene) {
  const int32_t bytes = RunLength(scene);
  const PlaneView d = scene.Run(bytes);
  scene.Call<FillBytesRoutine>(routine, d.first, bytes, scene.AnyByte());
}

void ExerciseFillRect(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = RectOf(scene, shape, shape.columns, 1);
  scene.Call<FillRectRoutine>(routine, d.first, shape.rows, shape.columns, d.stride,
                              scene.AnyByte());
}

void ExerciseFillWords(Routine routine, Scene& scene) {
  const int32_t count = RunLength(scene) / 2;
  const PlaneView d = scene.Run(count * 2);
  const auto value = static_cast<uint16_t>(scene.Choose().Below(65536));
  scene.Call<FillWordsRoutine>(routine, d.Words(), count, scene.Narrow(value));
}

void ExerciseFillWordRect(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView d = RectOf(scene, shape, shape.columns * 2, 1);
  const auto value = static_cast<uint16_t>(scene.Choose().Below(65536));
  scene.Call<FillWordRectRoutine>(routine, d.Words(), shape.rows, shape.columns, d.stride,
                                  scene.Narrow(value));
}

void ExerciseBytesAllEqual(Routine routine, Scene& scene) {
  const int32_t bytes = RunLength(scene);
  const PlaneView run = scene.Run(bytes);
  const uint32_t value = Plant(scene, run, {1, bytes});
  scene.Call<BytesAllEqualRoutine>(routine, run.first, bytes, value);
}

void ExerciseRectAllEqual(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView rect = RectOf(scene, shape, shape.columns, 1);
  const uint32_t value = Plant(scene, rect, shape);
  scene.Call<RectAllEqualRoutine>(routine, rect.first, shape.rows, shape.columns, rect.stride,
                                  value);
}

}  // namespace vantrix::host
