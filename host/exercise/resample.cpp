#include <algorithm>
#include <climits>

#include "host/exercise/exercises.h"
#include "suites/resample/signatures.h"

namespace vantrix::host {
namespace {

// Returns a list of 32-bit values that the caller fills in.
int32_t* ListOf(Scene& scene, int32_t count) {
  return reinterpret_cast<int32_t*>(scene.Run(std::max(count, 0) * 4, 4).first);
}

// Returns how many source rows the next output row takes:
// `rest` rows may still be taken, and `taken` given back.
int32_t ChooseRowCount(Choices& choose, int32_t taken, int32_t rest) {
  switch (choose.Below(20)) {
    case 0:
      return -choose.Between(0, std::min(taken, 6));
    case 1:
      return std::min(rest, choose.Between(250, 260));
    case 2:
      return std::min(rest, choose.Between(500, 800));
    default:
      return std::min(rest, choose.Between(0, 8));
  }
}

// Returns the length or a side of a source: now and then none.
int32_t ChooseLength(Choices& choose) {
  if (choose.OneIn(16)) return choose.Between(-2, 0);
  return choose.OneIn(3) ? choose.Between(1, 4) : choose.Between(1, 300);
}
int32_t ChooseMode(Scene& scene) {
  constexpr uint16_t kModes[] = {0, 0, 1, 1, 2, 0x100, 0xFFFF};
  return static_cast<int32_t>(scene.Narrow(kModes[scene.Choose().Below(7)]));
}

// Source positions near one another, anywhere inside, around
// the ends, or at the edges of what the modes accept.
class Positions {
 public:
  Positions(Scene& scene, int32_t length)
      : choose_(scene.Choose()),
        length_(std::max(length, 1)),
        kind_(scene.IsMeasured() ? 0 : choose_.Below(5)),
        at_(choose_.Between(0, length_ << 16)),
        step_(choose_.Between(-100000, 100000)) {}

  int32_t Next() {
    constexpr int32_t kEdges[] = {-32769, -32768, -129, -128, 127, 128, 32767, 32768};
    const int32_t end = (length_ - 1) << 16;
    switch (kind_) {
      case 1:
        return choose_.Between(0, end);
      case 2:
        return choose_.Between(-3 << 16, (length_ + 2) << 16);
      case 3: {
        const int32_t edge = kEdges[choose_.Below(8)];
        return choose_.OneIn(2) ? edge : end + edge;
      }
      case 4:
        if (choose_.OneIn(8)) return choose_.OneIn(2) ? INT_MIN : INT_MAX;
        return choose_.Between(0, length_ - 1) << 16;
      default:
        at_ += step_;
        if (at_ < 0 || at_ > end) step_ = -step_, at_ = std::clamp(at_, 0, end);
        return at_;
    }
  }

 private:
  Choices& choose_;
  int32_t length_;
  uint32_t kind_;
  int32_t at_, step_;
};

int32_t OutputCount(Scene& scene) {
  const Shape shape = scene.ChooseShape();
  return scene.IsMeasured() ? shape.rows * shape.columns : shape.columns;
}

}  // namespace

// When measured, the shape is that of the source, and three rows make one.
void ExerciseBoxAverageRows(Routine routine, Scene& scene) {
  Choices& choose = scene.Choose();
  Shape shape = scene.ChooseShape();
  if (scene.IsMeasured()) shape.rows /= 3;
  const PlaneView apart = scene.Bytes(shape);
  int32_t* const counts = ListOf(scene, shape.rows);
  const int32_t mostRows = shape.columns < 400 ? 1000 : 100;
  int32_t row = 0, sourceRows = 0;
  for (int32_t y = 0; y < shape.rows; ++y) {
    counts[y] = scene.IsMeasured() ? 3 : ChooseRowCount(choose, row, mostRows - row);
    row += counts[y];
    sourceRows = std::max(sourceRows, row);
  }
  // After the last row nothing is read, however far the source moves back.
  constexpr int32_t kFarBack[] = {-1, -2, -3, -5, -16777216, -16777217, INT_MIN, INT_MIN + 1};
  if (!scene.IsMeasured() && shape.rows > 0 && choose.OneIn(8))
    counts[shape.rows - 1] = kFarBack[choose.Below(8)];
  const PlaneView s = scene.Bytes({sourceRows, shape.columns});
  const PlaneView d =
      scene.PerhapsWithin(apart, shape, shape.columns, s, sourceRows, shape.columns);
  scene.Call<BoxAverageRows>(routine, s.first, d.first, shape.rows, shape.columns, counts, s.stride,
                             d.stride);
}

// When measured, the shape is that of the source, and blocks are of 2 x 2.
void ExerciseBoxAverageArea(Routine routine, Scene& scene) {
  Choices& choose = scene.Choose();
  Shape shape = scene.ChooseShape();
  int32_t width = 2, height = 2;
  if (scene.IsMeasured()) {
    shape = {shape.rows / 2, shape.columns / 2};
  } else {
    const bool isSmall = shape.columns <= 70 && shape.rows <= 6;
    const int32_t most = isSmall ? 20 : shape.columns < 1000 && shape.rows <= 6 ? 8 : 4;
    width = choose.Between(1, most), height = choose.Between(1, most);
    if (choose.OneIn(10)) width = choose.Between(-1, 1), height = choose.Between(0, 2);
    if (isSmall && choose.OneIn(6)) width = choose.Between(1, 2), height = choose.Between(120, 260);
    if (isSmall && choose.OneIn(6)) width = choose.Between(2025, 2060), height = 1;
  }
  const PlaneView apart = scene.Bytes(shape);
  const bool isEmpty = shape.rows < 1 || shape.columns < 1 || width < 1 || height < 1;
  const Shape from = isEmpty ? Shape{0, 0} : Shape{shape.rows * height, shape.columns * width};
  const PlaneView s = scene.Bytes(from);
  const PlaneView d = scene.PerhapsWithin(apart, shape, shape.columns, s, from.rows, from.columns);
  scene.Call<BoxAverageArea>(routine, s.first, d.first, shape.rows, shape.columns, width, height,
                             s.stride, d.stride);
}

// When measured, lengths go from half to one and a half times the width.
void ExerciseResampleRowsStepped(Routine routine, Scene& scene) {
  Choices& choose = scene.Choose();
  const Shape shape = scene.ChooseShape();
  const PlaneView apart = scene.Bytes(shape);
  int32_t* const lengths = ListOf(scene, shape.rows);
  constexpr int32_t kLengths[] = {0, 0, 1, 2, -1, INT_MAX, INT_MIN, INT_MIN + 1};
  for (int32_t y = 0; y < shape.rows; ++y) {
    const int32_t width = std::max(shape.columns, 1);
    if (scene.IsMeasured())
      lengths[y] = width / 2 + static_cast<int32_t>(int64_t{width} * y / shape.rows);
    else if (choose.OneIn(4))
      lengths[y] = kLengths[choose.Below(8)];
    else
      lengths[y] =
          choose.OneIn(3) ? width + choose.Between(-8, 8) : choose.Between(-width, 3 * width);
  }
  // The source has three more samples on both sides.
  const PlaneView s = scene.Bytes({shape.columns < 1 ? 0 : shape.rows, shape.columns + 6});
  const PlaneView d =
      scene.PerhapsWithin(apart, shape, shape.columns, s, shape.rows, shape.columns + 6);
  scene.Call<ResampleRowsStepped>(routine, s.first + 3, d.first, shape.rows, shape.columns, lengths,
                                  s.stride, d.stride);
}

void ExerciseSampleAtPositions1D(Routine routine, Scene& scene) {
  const int32_t count = OutputCount(scene);
  const PlaneView apart = scene.Run(count);
  const int32_t length = scene.IsMeasured() ? 4096 : ChooseLength(scene.Choose());
  const PlaneView s = scene.Run(length);
  const PlaneView d = scene.PerhapsWithin(apart, {1, count}, count, s, 1, length);
  int32_t* const list = ListOf(scene, count);
  Positions positions(scene, length);
  for (int32_t i = 0; i < count; ++i) list[i] = positions.Next();
  const int32_t mode = scene.IsMeasured() ? 1 : ChooseMode(scene);
  scene.Call<SampleAtPositions1D>(routine, s.first, d.first, count, length, list, mode);
}

void ExerciseSampleAtPositions2D(Routine routine, Scene& scene) {
  const int32_t count = OutputCount(scene);
  const PlaneView apart = scene.Run(count);
  const int32_t width = scene.IsMeasured() ? 512 : ChooseLength(scene.Choose());
  const int32_t height = scene.IsMeasured() ? 512 : ChooseLength(scene.Choose());
  const PlaneView s = scene.Bytes({height, width});
  const PlaneView d = scene.PerhapsWithin(apart, {1, count}, count, s, height, width);
  int32_t* const list = ListOf(scene, 2 * std::max(count, 0));
  Positions x(scene, width), y(scene, height);
  for (int32_t i = 0; i < count; ++i) list[2 * i] = x.Next(), list[2 * i + 1] = y.Next();
  const int32_t mode = scene.IsMeasured() ? 1 : ChooseMode(scene);
  scene.Call<SampleAtPositions2D>(routine, s.first, d.first, count, width, height, list, s.stride,
                                  mode);
}

}  // namespace vantrix::host
