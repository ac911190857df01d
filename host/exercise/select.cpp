#include "host/exercise/exercises.h"
#include "suites/select/signatures.h"

namespace vantrix::host {
namespace {

// Fills a mask of any class, often with one entry of another kind.
template <class T>
void PlantMask(Scene& scene, Shape shape, PlaneView view) {
  constexpr int kHalf = sizeof(T) == 1 ? 128 : 16384, kFull = sizeof(T) == 1 ? 255 : 32768;
  constexpr int kTop = sizeof(T) == 1 ? 255 : 65535;
  Choices& choose = scene.Choose();
  const uint32_t kind = scene.IsMeasured() ? 2 : choose.Below(7);
  uint64_t state = choose.Seed() * 2 + 1;
  const auto any = [&](int low, int high) {
    state = state * 6364136223846793005u + 1442695040888963407u;
    return static_cast<T>(low +
                          static_cast<int>((state >> 33) % static_cast<uint64_t>(high - low + 1)));
  };
  const auto entry = [&](int32_t y, int32_t x) -> T& {
    return reinterpret_cast<T*>(view.first + intptr_t{y} * view.stride)[x];
  };
  for (int32_t y = 0; y < shape.rows; ++y) {
    for (int32_t x = 0; x < shape.columns; ++x) {
      switch (kind) {
        case 0:
          entry(y, x) = 0;
          break;
        case 1:
          entry(y, x) = static_cast<T>(kFull);
          break;
        case 2:
          entry(y, x) = any(0, kHalf - 1);
          break;
        case 3:
          entry(y, x) = any(kHalf, kFull);
          break;
        case 4:
          entry(y, x) = static_cast<T>(any(0, 1) * kFull);
          break;
        case 5:
          entry(y, x) = any(kHalf, kHalf + kHalf / 2);
          break;
        default:
          entry(y, x) = any(0, kTop);
          break;
      }
    }
  }
  if (!scene.IsMeasured() && shape.rows > 0 && shape.columns > 0 && choose.OneIn(2)) {
    const int kValues[] = {0, 1, kHalf - 1, kHalf, kFull - 1, kFull, kTop, kTop / 3};
    entry(choose.Between(0, shape.rows - 1), choose.Between(0, shape.columns - 1)) =
        static_cast<T>(kValues[choose.Below(8)]);
  }
}

template <class T, class Signature>
void PropagateScene(Routine routine, Scene& scene) {
  constexpr int32_t kSize = sizeof(T);
  Shape shape = scene.ChooseShape();
  Choices& choose = scene.Choose();
  // Often more rows than a register has lanes, as kernels walk that many lines along rows at once.
  if (!scene.IsMeasured() && shape.rows > 0 && choose.OneIn(2)) shape.rows = choose.Between(7, 40);
  // Entries are side by side, or as far apart as those of interleaved planes.
  const int32_t apart = scene.IsMeasured() || choose.OneIn(2) ? 1 : choose.Between(2, 4);
  const int32_t columns = shape.columns * apart;
  PlaneView priority, value;
  if (!scene.IsMeasured() && shape.rows > 0 && columns > 0 && choose.OneIn(6)) {
    // Planes that share entries, or lie in one another's gaps.
    scene.NoteOverlap();
    constexpr int32_t kMore = 4;
    const Shape both{shape.rows + 1, shape.columns + kMore};
    const PlaneView plane = scene.Plane(both, (columns + kMore) * kSize, kSize);
    const auto somewhere = [&]() {
      const intptr_t row = choose.Between(0, 1), entry = choose.Between(0, kMore);
      return PlaneView{plane.first + row * plane.stride + entry * kSize, plane.stride};
    };
    priority = somewhere();
    value = somewhere();
    // The lines of one plane may share entries, too.
    if (choose.OneIn(2))
      priority.stride = value.stride =
          (plane.stride < 0 ? -kSize : kSize) * choose.Between(0, shape.columns);
  } else {
    priority = scene.Plane(shape, columns * kSize, kSize);
    value = scene.Twin(shape, columns * kSize, kSize, priority);
  }
  // Often low priorities, which run out.
  const uint32_t low = scene.IsMeasured() ? 3 : choose.Below(3);
  for (int32_t y = 0; y < shape.rows && low > 0; ++y)
    for (int32_t x = 0; x < columns; ++x) {
      T& p = reinterpret_cast<T*>(priority.first + intptr_t{y} * priority.stride)[x];
      p = static_cast<T>(low == 1 ? p % 4 : low == 2 ? (p % 7 == 0 ? p % 11 : 0) : p % 16);
    }
  // Along columns or along rows, forwards or backwards. Steps of the 8-bit routine count entries;
  // those of the 16-bit routine count bytes, and an odd number loses its lowest bit.
  const int32_t rowStep = priority.stride, columnStep = kSize * apart;
  const bool isDown = scene.IsMeasured() || choose.OneIn(2),
             isBack = !scene.IsMeasured() && choose.OneIn(2);
  int32_t lineCount = isDown ? shape.columns : shape.rows;
  int32_t lineLength = isDown ? shape.rows : shape.columns;
  int32_t lineStep = isDown ? columnStep : rowStep, entryStep = isDown ? rowStep : columnStep;
  intptr_t start = 0;
  if (isBack && lineLength > 0) {
    start = intptr_t{lineLength - 1} * entryStep;
    entryStep = -entryStep;
  }
  if (!scene.IsMeasured() && lineCount > 0 && choose.OneIn(4)) {
    start += intptr_t{lineCount - 1} * lineStep;
    lineStep = -lineStep;
  }
  if (kSize == 2 && !scene.IsMeasured()) {
    lineStep |= static_cast<int32_t>(choose.Below(2));
    entryStep |= static_cast<int32_t>(choose.Below(2));
  }
  if (!scene.IsMeasured() && choose.OneIn(8)) lineCount = choose.Between(-2, 1) < 1 ? 0 : lineCount;
  scene.Call<Signature>(routine, reinterpret_cast<T*>(priority.first + start),
                        reinterpret_cast<T*>(value.first + start), lineCount, lineLength, lineStep,
                        entryStep);
}

}  // namespace

void ExerciseSpreadMark(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView plane = scene.PerhapsFolded(scene.Bytes(shape), shape, shape.columns);
  scene.Call<SpreadMarkRoutine>(routine, plane.first, shape.rows, shape.columns, plane.stride);
}

void ExerciseClassify8(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView plane = scene.Bytes(shape);
  PlantMask<uint8_t>(scene, shape, plane);
  scene.Call<Classify8Routine>(routine, plane.first, shape.rows, shape.columns, plane.stride);
}

void ExerciseClassify16(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView plane = scene.Words(shape);
  PlantMask<uint16_t>(scene, shape, plane);
  scene.Call<Classify16Routine>(routine, plane.Words(), shape.rows, shape.columns,
                                plane.stride | static_cast<int32_t>(scene.Choose().Below(2)));
}

void ExercisePropagate8(Routine routine, Scene& scene) {
  PropagateScene<uint8_t, Propagate8Routine>(routine, scene);
}
void ExercisePropagate16(Routine routine, Scene& scene) {
  PropagateScene<uint16_t, Propagate16Routine>(routine, scene);
}

}  // namespace vantrix::host
