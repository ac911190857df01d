// One call of a routine with everything that belongs to it: planes of a chosen shape, place and
// content, arguments, and what the call left.
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

// A plane as routines take it: where its first row starts, and the bytes from a row to the next.
struct PlaneView {
  uint8_t* first;
  int32_t stride;

  uint16_t* Words() const { return reinterpret_cast<uint16_t*>(first); }
  float* Floats() const { return reinterpret_cast<float*>(first); }
};

// Runs a call; a benchmark's runner runs it more than once.
using Runner = std::function<void(const std::function<void()>& call)>;

// What planes are like when a call is measured.
struct Measured {
  bool isMisaligned = false;  // each starts a different odd number of units past a boundary
  bool hasDiscs = false;      // masks are full discs with nothing around them, not noise
  bool isSmooth = false;      // samples go up and down in small steps, as in pictures, not noise
};

class Scene {
 public:
  Scene(Arena& arena, Choices choices) : arena_(arena), choices_(choices) {}

  // For measuring: sets the shape and the runner. `how`
  // says what planes are like; by default they hold noise.
  void Measure(Shape shape, Runner runner, Measured how = {});
  // For a runner: makes its call run this routine from here on, in the same planes.
  void Substitute(Routine routine) { routine_ = routine; }
  // Returns the planes so far.
  std::span<Outcome::Window> Planes() { return outcome_.windows; }

  // Sets the shape, and puts the first plane, which exercises use as the destination, `offset`
  // units past an aligned address.
  void Pin(Shape shape, int32_t offset);

  // Makes the call note what the planes hold before it.
  void KeepsInputs() { keepsInputs_ = true; }

  Choices& Choose() { return choices_; }
  bool IsMeasured() const { return runner_ != nullptr; }
  bool HasDiscs() const { return measured_.hasDiscs; }
  bool IsPinned() const { return pinnedOffset_ >= 0; }

  // Returns a shape: mostly a few rows of up to a few hundred samples; now and then none, about
  // 4096 samples, or many rows.
  Shape ChooseShape();

  // Makes a plane of a shape's rows, of rowBytes each. It starts at any offset, or begins or ends
  // at an inaccessible page. Its stride is a multiple of `unit`, of either sign. If the shape is
  // empty, every byte of the plane is inaccessible.
  PlaneView Plane(Shape shape, int32_t rowBytes, int32_t unit = 1);
  PlaneView Bytes(Shape shape) { return Plane(shape, shape.columns); }
  // RoomyBytes makes a plane, now and then with room around it. Over makes a plane of the same
  // shape somewhere over such a plane, and returns any other plane itself.
  PlaneView RoomyBytes(Shape shape);
  PlaneView Over(Shape shape, PlaneView other);
  // Returns mostly the plane; now and then one in the same bytes whose rows overlap one another.
  PlaneView PerhapsFolded(PlaneView plane, Shape shape, int32_t rowBytes, int32_t unit = 1);
  // Returns mostly `apart`; now and then that plane folded, or one of this shape in the memory of
  // `other`, of which `rows` rows of `bytes` bytes may be read.
  PlaneView PerhapsWithin(PlaneView apart, Shape shape, int32_t rowBytes, PlaneView other,
                          int32_t rows, int32_t bytes, int32_t unit = 1);
  PlaneView Words(Shape shape) { return Plane(shape, shape.columns * 2, 2); }
  // Makes a plane with the stride of another.
  PlaneView Twin(Shape shape, int32_t rowBytes, int32_t unit, PlaneView other);
  // Makes a run of bytes: a plane of one row.
  PlaneView Run(int32_t bytes, int32_t unit = 1) { return Plane({1, bytes}, bytes, unit); }

  // Returns a byte or a 16-bit value as a routine may receive it: with anything above it.
  uint32_t Narrow(uint8_t value) { return value | Junk() << 8; }
  uint32_t Narrow(uint16_t value) { return value | Junk() << 16; }
  uint32_t AnyByte();

  template <class Signature, class... Arguments>
  void Call(Routine routine, Arguments... arguments);

  // Sets any result to be compared in addition to the planes.
  void SetResult(uint64_t result) { outcome_.result = result; }
  uint64_t Result() const { return outcome_.result; }
  void NoteOverlap() { outcome_.hasOverlap = true; }
  Outcome TakeOutcome();

 private:
  uint32_t Junk() { return choices_.Below(65536) * 65537u; }
  void FillContent(uint8_t* start, size_t bytes);
  PlaneView Place(Shape shape, int32_t rowBytes, int32_t unit, int32_t stride);
  // Notes the arguments with the types of the routine's parameters.
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

// Runs the exercise with both routines in the same scene. Returns their difference in words; empty
// if there is none. `names` are the names of the arguments, separated by ", ".
std::string CompareRoutines(Exercise* exercise, Routine expected, Routine actual,
                            const Scene& scene, const std::string& names = {});

}  // namespace vantrix::host
