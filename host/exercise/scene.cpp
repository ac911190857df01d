#include "host/exercise/scene.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace vantrix::host {
namespace {

// Bytes before and after a plane that must stay as they are.
constexpr ptrdiff_t kMargin = 64;

// Where misaligned planes start, in units. They also lie apart: otherwise a row that is written
// would lie at the same place of a page as one that is read next.
constexpr int32_t kOddPlaces[] = {5, 19, 41, 27, 11};
constexpr ptrdiff_t kApart = 704;

class Noise {
 public:
  explicit Noise(uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15u + 1) {}
  uint64_t Next() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 7;
    state_ ^= state_ << 17;
    return state_ * 0x2545F4914F6CDD1Du;
  }

 private:
  uint64_t state_;
};

void FillNoise(Noise& noise, uint8_t* start, size_t bytes) {
  size_t i = 0;
  for (; i + 8 <= bytes; i += 8) {
    const uint64_t word = noise.Next();
    std::memcpy(start + i, &word, 8);
  }
  for (; i < bytes; ++i) start[i] = static_cast<uint8_t>(noise.Next() >> 56);
}

// Fills memory with samples in steps so small that a branch
// on them does not change direction at each.
void FillSmoothly(Noise& noise, uint8_t* start, size_t bytes) {
  int sample = static_cast<int>(noise.Next() >> 56);
  for (size_t i = 0; i < bytes;) {
    uint64_t steps = noise.Next();
    for (int k = 0; k < 8 && i < bytes; ++k, steps >>= 8) {
      const int next = std::abs(sample + static_cast<int>(steps & 7) - 3);
      sample = next > 255 ? 510 - next : next;
      start[i++] = static_cast<uint8_t>(sample);
    }
  }
}

}  // namespace

void Scene::Measure(Shape shape, Runner runner, Measured how) {
  fixed_ = shape;
  runner_ = std::move(runner);
  measured_ = how;
}

void Scene::Pin(Shape shape, int32_t offset) {
  fixed_ = shape;
  pinnedOffset_ = offset;
}

Shape Scene::ChooseShape() {
  if (IsMeasured() || IsPinned()) return fixed_;
  Shape shape;
  switch (choices_.Below(16)) {
    case 0:
      shape.columns = choices_.Between(-3, 0);
      break;
    case 1:
      shape.columns = choices_.Between(4090, 4102);
      break;
    case 2:
    case 3:
      shape.columns = choices_.Between(71, 400);
      break;
    default:
      shape.columns = choices_.Between(1, 70);
      break;
  }
  switch (choices_.Below(16)) {
    case 0:
      shape.rows = choices_.Between(-3, 0);
      break;
    case 1:
      // More rows than any kernel processes together.
      shape.rows = shape.columns <= 70 ? choices_.Between(7, 150) : 6;
      break;
    default:
      shape.rows = choices_.Between(1, 6);
      break;
  }
  return shape;
}

// Fills memory with contents on which rules differ: noise, one value, extremes, values around the
// middle, ramps, and long runs as in masks.
void Scene::FillContent(uint8_t* start, size_t bytes) {
  const uint32_t kind = IsMeasured() ? 0 : choices_.Below(8);
  Noise noise(choices_.Seed());
  if (measured_.isSmooth) return FillSmoothly(noise, start, bytes);
  FillNoise(noise, start, bytes);
  constexpr uint8_t kEdges[] = {0, 1, 127, 128, 254, 255, 0, 255};
  switch (kind) {
    case 1:
      std::memset(start, kEdges[noise.Next() >> 61], bytes);
      break;
    case 2:
      for (size_t i = 0; i < bytes; ++i) start[i] = kEdges[start[i] & 7];
      break;
    case 3:
      for (size_t i = 0; i < bytes; ++i) start[i] = start[i] & 1 ? 255 : 0;
      break;
    case 4:
      for (size_t i = 0; i < bytes; ++i) start[i] = static_cast<uint8_t>(i);
      break;
    case 5:
      for (size_t i = 0; i < bytes;) {
        const size_t end = std::min(bytes, i + 1 + (noise.Next() >> 58));
        std::memset(start + i, kEdges[noise.Next() >> 61], end - i);
        i = end;
      }
      break;
    default:
      break;
  }
}

PlaneView Scene::Plane(Shape shape, int32_t rowBytes, int32_t unit) {
  // Room between rows, as for other planes of the same picture or padding.
  const int32_t gap = IsMeasured() || choices_.OneIn(3) ? 0 : choices_.Between(0, 40) * unit;
  const bool isUpward = !IsMeasured() && choices_.OneIn(4);
  const int32_t step = rowBytes > 0 ? rowBytes + gap : gap + 64;
  return Place(shape, rowBytes, unit, isUpward ? -step : step);
}

PlaneView Scene::Twin(Shape shape, int32_t rowBytes, int32_t unit, PlaneView other) {
  return Place(shape, rowBytes, unit, other.stride);
}

PlaneView Scene::Place(Shape shape, int32_t rowBytes, int32_t unit, int32_t stride) {
  const bool isPinned = IsPinned() && regionsUsed_ == 0;
  const int plane = regionsUsed_;
  uint8_t* const region = arena_.Region(regionsUsed_++ % arena_.RegionCount());
  const auto regionBytes = static_cast<ptrdiff_t>(arena_.RegionBytes());
  if (shape.rows < 1 || shape.columns < 1 || rowBytes < 1) return {region + regionBytes, stride};

  const ptrdiff_t extent = ptrdiff_t{shape.rows - 1} * std::abs(stride) + rowBytes;
  const ptrdiff_t room = (regionBytes - extent) / unit;
  if (room < 0) {
    std::fprintf(stderr, "vantrix-host: a plane of %td bytes does not fit the arena\n", extent);
    std::exit(1);
  }
  ptrdiff_t offset = 64;
  if (isPinned)
    offset += pinnedOffset_ * unit;
  else if (measured_.isMisaligned)
    offset +=
        plane * kApart + kOddPlaces[static_cast<size_t>(plane) % std::size(kOddPlaces)] * unit;
  else if (!IsMeasured())
    switch (choices_.Below(4)) {
      case 1:
        offset = 0;
        break;
      case 2:
        offset = room * unit;
        break;
      default:
        offset = std::min<ptrdiff_t>(room, choices_.Between(0, 127)) * unit;
        break;
    }
  uint8_t* const lowest = region + offset;
  uint8_t* const windowStart = std::max(region, lowest - kMargin);
  uint8_t* const windowEnd = std::min(region + regionBytes, lowest + extent + kMargin);
  FillContent(windowStart, static_cast<size_t>(windowEnd - windowStart));

  const ptrdiff_t toFirst = stride < 0 ? ptrdiff_t{shape.rows - 1} * -stride : 0;
  const PlaneView view{lowest + toFirst, stride};
  outcome_.windows.push_back(
      {windowStart, shape.rows, stride, rowBytes, view.first, {}, {windowStart, windowEnd}});
  return view;
}

namespace {
// How far an overlapping plane may lie from the other, in bytes either way.
constexpr int32_t kReach = 48;
}  // namespace

PlaneView Scene::RoomyBytes(Shape shape) {
  if (IsMeasured() || IsPinned() || shape.rows < 1 || shape.columns < 1) return Bytes(shape);
  if (!choices_.OneIn(3)) return Bytes(shape);
  // A plane with more and longer rows, of which the shape is a part.
  const Shape room{shape.rows + 2, shape.columns + 2 * kReach};
  PlaneView view = Bytes(room);
  isRoomy_ = true;
  view.first += view.stride + kReach;
  return view;
}

PlaneView Scene::Over(Shape shape, PlaneView other) {
  if (!isRoomy_) return other;
  NoteOverlap();
  // The same rows, or one row further up or down, shifted, perhaps drifting from row to row.
  PlaneView view = other;
  view.first +=
      intptr_t{choices_.Between(-1, 1)} * other.stride + choices_.Between(-kReach, kReach);
  if (choices_.OneIn(3) && shape.rows > 1) {
    const int32_t drift = choices_.Between(-kReach, kReach) / shape.rows;
    const ptrdiff_t last = drift * ptrdiff_t{shape.rows - 1};
    const ptrdiff_t start = view.first - other.first;
    if (start + last <= kReach && start + last >= -kReach) view.stride += drift;
  }
  return view;
}

PlaneView Scene::PerhapsFolded(PlaneView plane, Shape shape, int32_t rowBytes, int32_t unit) {
  if (IsMeasured() || IsPinned() || !choices_.OneIn(8)) return plane;
  if (shape.rows < 1 || shape.columns < 1) return plane;
  NoteOverlap();
  if (plane.stride < 0) plane.first += ptrdiff_t{shape.rows - 1} * plane.stride;
  plane.stride = choices_.Between(0, std::min(rowBytes, std::abs(plane.stride))) / unit * unit;
  return plane;
}

PlaneView Scene::PerhapsWithin(PlaneView apart, Shape shape, int32_t rowBytes, PlaneView other,
                               int32_t rows, int32_t bytes, int32_t unit) {
  if (IsMeasured() || IsPinned() || !choices_.OneIn(4))
    return PerhapsFolded(apart, shape, rowBytes, unit);
  if (shape.rows < 1 || shape.columns < 1 || rows < 1 || bytes < 1) return apart;
  // The same stride, as in a picture, or one of its own, perhaps upside down.
  int32_t stride = other.stride;
  if (choices_.OneIn(3)) stride = (rowBytes + choices_.Between(0, 8)) / unit * unit;
  if (choices_.OneIn(4)) stride = -stride;
  const auto reach = [](int32_t count, int32_t step) { return ptrdiff_t{count - 1} * step; };
  const ptrdiff_t otherReach = reach(rows, other.stride), ownReach = reach(shape.rows, stride);
  const ptrdiff_t room = std::abs(otherReach) + bytes - std::abs(ownReach) - rowBytes;
  if (room < 0) return apart;
  NoteOverlap();
  // Near where the other's rows begin, or anywhere.
  const ptrdiff_t start = otherReach < 0 ? -otherReach : 0;
  ptrdiff_t at = choices_.Between(0, static_cast<int32_t>(room));
  if (choices_.OneIn(2))
    at = std::clamp<ptrdiff_t>(
        start + choices_.Between(-1, 1) * other.stride + choices_.Between(-kReach, kReach), 0,
        room);
  uint8_t* const lowest = other.first - start + at / unit * unit;
  return {lowest - (ownReach < 0 ? ownReach : 0), stride};
}

uint32_t Scene::AnyByte() {
  constexpr uint8_t kEdges[] = {0, 1, 127, 128, 254, 255};
  const uint32_t choice = choices_.Below(3);
  return Narrow(choice == 0 ? kEdges[choices_.Below(6)]
                            : static_cast<uint8_t>(choices_.Below(256)));
}

void Scene::KeepInputs() {
  for (auto& window : outcome_.windows)
    window.before.assign(window.start, window.start + window.after.size());
}

Outcome Scene::TakeOutcome() {
  for (auto& window : outcome_.windows)
    std::memcpy(window.after.data(), window.start, window.after.size());
  return std::move(outcome_);
}

std::string CompareRoutines(Exercise* exercise, Routine expected, Routine actual,
                            const Scene& scene, const std::string& names) {
  const auto run = [&](Routine routine, bool keepsInputs) {
    Scene copy = scene;
    if (keepsInputs) copy.KeepsInputs();
    exercise(routine, copy);
    return copy.TakeOutcome();
  };
  const Outcome want = run(expected, false), got = run(actual, false);
  return AreSame(want, got) ? "" : Difference(want, got, run(expected, true), names);
}

}  // namespace vantrix::host
