#include <algorithm>

#include "host/exercise/exercises.h"
#include "host/services.h"
#include "suites/filter/signatures.h"

namespace vantrix::host {
namespace {

// Returns a view of the shape in a plane that has `rows`
// rows and `columns` columns more on each side.
PlaneView Bordered(Scene& scene, Shape shape, int32_t rows, int32_t columns) {
  if (shape.rows < 1 || shape.columns < 1) return scene.Bytes(shape);
  PlaneView view = scene.Bytes({shape.rows + 2 * rows, shape.columns + 2 * columns});
  view.first += intptr_t{rows} * view.stride + columns;
  return view;
}

// Returns the destination `apart`, or one over a source without its border.
PlaneView Beneath(Scene& scene, PlaneView apart, Shape shape, PlaneView source) {
  return scene.PerhapsWithin(apart, shape, shape.columns, source, shape.rows, shape.columns);
}

// Blocks lie at multiples of 16.
PlaneView Block(Scene& scene) { return scene.Run(128, 16); }

}  // namespace

void ExerciseDeviation(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  const PlaneView apart = scene.Bytes(shape), s = Bordered(scene, shape, 1, 1);
  const PlaneView d = Beneath(scene, apart, shape, s);
  const int before = services.polls;
  scene.Call<DeviationRoutine>(routine, s.first, d.first, shape.rows, shape.columns, s.stride,
                               d.stride);
  // The routine must poll once and return the poll's result.
  if (!scene.IsMeasured()) {
    const bool isPolledOnce = services.polls == before + 1;
    scene.SetResult(isPolledOnce && scene.Result() == static_cast<uint64_t>(services.polls));
  }
}

void ExerciseConvolve(Routine routine, Scene& scene) {
  const Shape shape = scene.ChooseShape();
  Choices& choose = scene.Choose();
  int32_t radius = 3;
  if (!scene.IsMeasured()) {
    const uint32_t range = choose.Below(16);
    radius = range == 0  ? choose.Between(21, 36)
             : range < 3 ? choose.Between(8, 20)
                         : choose.Between(-1, 7);
  }
  const PlaneView apart = scene.Bytes(shape);
  const PlaneView s = Bordered(scene, shape, std::max(0, radius), 0);
  const PlaneView d = Beneath(scene, apart, shape, s);
  // Weights are those of a mean, small ones whose sum may
  // wrap, or any, with bits above the 16 that count.
  const int32_t taps = std::max(0, 2 * radius + 1);
  std::vector<uint8_t> memory(84 + 4 * static_cast<size_t>(taps));
  std::memcpy(memory.data() + 80, &radius, 4);
  const uint32_t kind = scene.IsMeasured() ? 0 : choose.Below(3);
  for (int32_t k = 0; k < taps; ++k) {
    uint32_t weight = 256u / static_cast<uint32_t>(taps);
    if (kind == 1) weight = choose.Below(129);
    if (kind == 2) weight = choose.Below(65536) | choose.Below(65536) << 16;
    std::memcpy(memory.data() + 84 + 4 * k, &weight, 4);
  }
  scene.Call<ConvolveRoutine>(
      routine, s.first, d.first, static_cast<uint32_t>(std::max(0, shape.rows)), shape.columns,
      s.stride, d.stride, reinterpret_cast<const ConvolutionKernel*>(memory.data()));
}

void ExerciseBlockSAD(Routine routine, Scene& scene) {
  const PlaneView a = Block(scene), b = Block(scene);
  scene.Call<BlockSADRoutine>(routine, a.first, b.first);
}

void ExerciseBlockSignedSAD(Routine routine, Scene& scene) {
  const PlaneView a = Block(scene), b = Block(scene), direction = Block(scene);
  scene.Call<BlockSignedSADRoutine>(routine, a.first, b.first, direction.first);
}

template <int kSpan>
void ExerciseFloatBlock(Routine routine, Scene& scene) {
  Choices& choose = scene.Choose();
  const int32_t count = scene.IsMeasured() ? scene.ChooseShape().rows * scene.ChooseShape().columns
                                           : choose.Between(0, 5 * kSpan);
  const int32_t outputs = count < kSpan ? 0 : (count - kSpan) / 4 * 4 + 4;
  const PlaneView apart = scene.Run(outputs * 4, 4), input = scene.Run(count * 4, 4);
  const PlaneView output =
      scene.PerhapsWithin(apart, {1, outputs}, outputs * 4, input, 1, count * 4, 4);
  const PlaneView matrix = scene.Run(4 * kSpan * 4, 4);
  // Numbers of a few magnitudes and both zeros, so that the order of additions shows.
  const auto plant = [&](PlaneView view, int32_t floats) {
    for (int32_t i = 0; i < floats; ++i) {
      int32_t bits;
      std::memcpy(&bits, view.first + 4 * i, 4);
      const float value = static_cast<float>(bits >> 8) * (bits & 1   ? 1e-3f
                                                           : bits & 2 ? -0.0f
                                                                      : 1e-6f);
      std::memcpy(view.first + 4 * i, &value, 4);
    }
  };
  plant(input, count);
  plant(matrix, 4 * kSpan);
  scene.Call<FloatBlockRoutine>(routine, input.Floats(), static_cast<uint32_t>(count),
                                matrix.Floats(), uintptr_t{0x123456789},
                                uintptr_t{0xFEDCBA987654321}, output.Floats());
}
template Exercise ExerciseFloatBlock<8>;
template Exercise ExerciseFloatBlock<12>;
template Exercise ExerciseFloatBlock<16>;
template Exercise ExerciseFloatBlock<20>;

}  // namespace vantrix::host
