// One call of a routine with everything that belongs to it: planes of a chosen shape,
// place and content, arguments, and what the call left behind.
//
// An exercise builds a scene from a sequence of choices and calls a routine in it. The
// same choices build the same scene to the byte and the address, so two routines can
// be compared by running the exercise once with each.
#pragma once

#include <xmmintrin.h>

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

#include "host/exercise/arena.h"
#include "host/exercise/choices.h"
#include "host/exercise/outcome.h"
#include "plugin/base/interface.h"

namespace vantrix::host {

struct Shape {
  int32_t rows, columns;
};

// A plane as routines take it: where its first row starts, and bytes between rows.
struct PlaneView {
  uint8_t* first;
  int32_t stride;

  uint16_t* Words() const { return reinterpret_cast<uint16_t*>(first); }
  float* Floats() const { return reinterpret_cast<float*>(first); }
};

// Runs a call; a benchmark's runs it more than once.
using Runner = std::function<void(const std::function<void()>& call)>;

// What planes are like where a call is measured.
struct Measured {
  bool isMisaligned = false;  // each starts another odd number of units past a boundary
  bool hasDiscs = false;      // masks are full discs with nothing around them, not noise
  bool isSmooth = false;      // samples go up and down in small steps, as in pictures: no noise
};

class Scene {
 public:
  Scene(Arena& arena, Choices choices) : arena_(arena), choices_(choices) {}

  // For measuring: a shape and a runner of one's own, and noise in all planes or what they are to
  // be like.
  void Measure(Shape shape, Runner runner, Measured how = {});
  // For a runner: from here on its call calls this routine, in the same planes.
  void Substitute(Routine routine) { routine_ = routine; }
  // The planes so far.
  std::span<Outcome::Window> Planes() { return outcome_.windows; }

  // A shape of one's own, and for the first plane, which exercises make the
  // destination, a place `offset` units past an aligned address.
  void Pin(Shape shape, int32_t offset);

  // Notes what the planes hold before the call.
  void KeepsInputs() { keepsInputs_ = true; }

  Choices& Choose() { return choices_; }
  bool IsMeasured() const { return runner_ != nullptr; }
  bool HasDiscs() const { return measured_.hasDiscs; }
  bool IsPinned() const { return pinnedOffset_ >= 0; }

  // Mostly a few rows of up to some hundred samples; now and then none, about 4096
  // samples, or many rows.
  Shape ChooseShape();

  // A plane of a shape's rows, of rowBytes each: at any offset, or ending at or
  // beginning at an inaccessible page, rows apart by any stride of either sign that is
  // a multiple of `unit`. Where the shape is empty every byte of it is inaccessible.
  PlaneView Plane(Shape shape, int32_t rowBytes, int32_t unit = 1);
  PlaneView Bytes(Shape shape) { return Plane(shape, shape.columns); }
  // One with room about it, and a plane of the same shape that lies somewhere over it.
  PlaneView RoomyBytes(Shape shape);
  PlaneView Over(Shape shape, PlaneView other);
  // Mostly the plane; now and then one in the same bytes whose rows share some with one another.
  PlaneView PerhapsFolded(PlaneView plane, Shape shape, int32_t rowBytes, int32_t unit = 1);
  // Mostly `apart`; now and then that folded, or a plane of this shape that lies in the memory of
  // another's rows, of which `rows` of `bytes` each may be read.
  PlaneView PerhapsWithin(PlaneView apart, Shape shape, int32_t rowBytes, PlaneView other,
                          int32_t rows, int32_t bytes, int32_t unit = 1);
  PlaneView Words(Shape shape) { return Plane(shape, shape.columns * 2, 2); }
  // A plane of another's geometry.
  PlaneView Twin(Shape shape, int32_t rowBytes, int32_t unit, PlaneView other);
  // A run of bytes: a plane of one row.
  PlaneView Run(int32_t bytes, int32_t unit = 1) { return Plane({1, bytes}, bytes, unit); }

  // A byte or a 16-bit value as a routine may receive it: with anything above it.
  uint32_t Narrow(uint8_t value) { return value | Junk() << 8; }
  uint32_t Narrow(uint16_t value) { return value | Junk() << 16; }
  uint32_t AnyByte();

  template <class Signature, class... Arguments>
  void Call(Routine routine, Arguments... arguments);

  // Any result to be compared besides the planes.
  void SetResult(uint64_t result) { outcome_.result = result; }
  uint64_t Result() const { return outcome_.result; }
  void NoteOverlap() { outcome_.hasOverlap = true; }
  Outcome TakeOutcome();

 private:
  uint32_t Junk() { return choices_.Below(65536) * 65537u; }
  void FillContent(uint8_t* start, size_t bytes);
  PlaneView Place(Shape shape, int32_t rowBytes, int32_t unit, int32_t stride);
  // As the routine takes them.
  template <class Result, class... Parameters>
  void Note(Result (*)(Parameters...), std::type_identity_t<Parameters>... arguments) {
    outcome_.arguments = {ArgumentOf(arguments)...};
    if (keepsInputs_) KeepInputs();
  }
  void KeepInputs();

  Arena& arena_;
  Choices choices_;
  Shape fixed_{};
  int32_t pinnedOffset_ = -1;
  Runner runner_;
  Measured measured_;
  bool keepsInputs_ = false;
  Routine routine_ = nullptr;
  int regionsUsed_ = 0;
  bool isRoomy_ = false;
  Outcome outcome_;
};

template <class Signature, class... Arguments>
void Scene::Call(Routine routine, Arguments... arguments) {
  Note(static_cast<Signature*>(nullptr), arguments...);
  routine_ = routine;
  const auto call = [&] {
    const auto function = reinterpret_cast<Signature*>(routine_);
    if constexpr (std::is_void_v<decltype(function(arguments...))>)
      function(arguments...);
    else
      outcome_.result = static_cast<uint64_t>(function(arguments...));
  };
  constexpr uint32_t kControlBits = 0xFFC0;  // the others are sticky flags
  const uint32_t before = _mm_getcsr();
  if (runner_)
    runner_(call);
  else
    call();
  outcome_.keptFloatControl = ((before ^ _mm_getcsr()) & kControlBits) == 0;
}

// An exercise belongs to an argument list, not to a routine.
using Exercise = void(Routine routine, Scene& scene);

// Runs the exercise with both routines in the same scene; their difference in words, empty where
// there is none. `names` are those of the arguments, separated by ", ".
std::string CompareRoutines(Exercise* exercise, Routine expected, Routine actual,
                            const Scene& scene, const std::string& names = {});

}  // namespace vantrix::host
