// What the benchmarks share.
#pragma once

#include <benchmark/benchmark.h>

#include <string>

#include "host/exercise/scene.h"

namespace vantrix::bench {

// Cycles of this processor per tick of its time stamp counter, measured once.
double CyclesPerTick();

// Registers a benchmark of one routine: the exercise builds the scene of this shape,
// the routine is called in it again and again. Counts cycles per sample of the shape
// and cycles per row.
void Register(const std::string& name, host::Exercise* exercise, Routine routine,
              host::Shape shape);

// The three sizes of a plane, 16 KiB, 256 KiB and 16 MiB, and rows that end early.
inline constexpr host::Shape kPlanes[] = {{64, 256}, {256, 1024}, {4096, 4096}};
inline constexpr host::Shape kShortRows[] = {{64, 5}, {64, 15}, {64, 33}, {64, 100}};

void RegisterFillArray();
void RegisterKernels();
void RegisterMaskedBlend();
void RegisterResample();
void RegisterRuns();

}  // namespace vantrix::bench
