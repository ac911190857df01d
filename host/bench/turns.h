// Several routines for one job, measured in turn.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "host/exercise/scene.h"

namespace vantrix::host {

struct Job {
  Exercise* exercise;
  Shape shape;
  bool isFromMemory;  // planes are flushed from the caches before each call
};

inline constexpr Measured kLikePictures{.hasDiscs = true, .isSmooth = true};

// Returns the ticks that a call of each routine takes: the least of its turns, which take `seconds`
// in all and are at least five. All routines work in the same planes, which are like pictures. What
// calls change is restored before each call.
std::vector<double> TakeTurns(Arena& arena, const Job& job, std::span<const Routine> routines,
                              double seconds);

// Returns how two routines differ in a scene like the measured ones; empty if they do the same.
std::string CompareMeasured(Arena& arena, Exercise* exercise, Routine expected, Routine actual,
                            Measured how);

// Returns the bytes of the largest plane that an exercise makes, per sample of a large shape; 0 if
// its planes have one small size, whatever the shape.
int32_t BytesPerSample(Arena& arena, Exercise* exercise);

}  // namespace vantrix::host
