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
  bool isFromMemory;  // planes are put out of the caches before each call
};

inline constexpr Measured kLikePictures{.hasDiscs = true, .isSmooth = true};

// The ticks that a call of each routine takes: the least of its turns, which take `seconds` in all
// and are five at least. All work in the same planes, which are like pictures. Before each call
// what calls change is as it was.
std::vector<double> TakeTurns(Arena& arena, const Job& job, std::span<const Routine> routines,
                              double seconds);

// How two routines differ in a scene as they are measured in; empty when they do the same.
std::string CompareMeasured(Arena& arena, Exercise* exercise, Routine expected, Routine actual,
                            Measured how);

// The bytes of the largest plane that an exercise makes, for each sample of a large shape: 0
// where its planes are of one small size, whatever the shape.
int32_t BytesPerSample(Arena& arena, Exercise* exercise);

}  // namespace vantrix::host
