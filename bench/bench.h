// What the benchmarks share.
#pragma once

#include <benchmark/benchmark.h>

#include <initializer_list>
#include <span>
#include <string>
#include <vector>

#include "host/exercise/scene.h"
#include "host/ordinary/ordinary.h"
#include "plugin/base/interface.h"

namespace vantrix::bench {

// Returns the processor's cycles per tick of its time stamp counter, measured once.
double CyclesPerTick();

// Registers a benchmark of one routine: the exercise builds the scene of this shape, and the
// routine is called in it repeatedly, by several threads in planes of their own. Counts cycles per
// sample of the shape and cycles per row, for the mean thread, and the routine's arguments.
void Register(const std::string& name, host::Exercise* exercise, Routine routine, host::Shape shape,
              host::Measured how, int threads);

// Returns the arena in which this thread measures routines, one after another.
host::Arena& MeasuringArena();

// Counts runs that measured, and reports their number now and then. The first runs of a benchmark
// only find out how many iterations it takes.
class Progress {
 public:
  void Count(const benchmark::State& state);

 private:
  int64_t iterations_ = 0;  // of the run before
};

// The work of a slot in one setting: a job for several routines.
struct Case {
  SuiteIndex suite;
  uint16_t slot;
  std::string setting;  // empty for the usual one
  host::Exercise* exercise;
  std::vector<host::Shape> shapes;
  host::Measured how = {};  // if planes are misaligned, only kernels are measured
  int threads = 1;          // if there are several, only the installed kernel is measured
};
std::vector<Case> Cases();

// The three usual sizes of a plane, 16 KiB, 256 KiB and 16 MiB, and 64 MiB, which no cache holds;
// planes of short rows; and planes so small that a call costs more than its samples.
inline constexpr host::Shape kPlanes[] = {{64, 256}, {256, 1024}, {4096, 4096}};
inline constexpr host::Shape kHuge = {8192, 8192};
inline constexpr host::Shape kShortRows[] = {{64, 5}, {64, 15}, {64, 33}, {64, 100}};
inline constexpr host::Shape kCalls[] = {{1, 1}, {1, 16}, {8, 8}};
constexpr bool IsShortRow(host::Shape shape) { return shape.rows == 64 && shape.columns <= 100; }
constexpr bool IsCall(host::Shape shape) { return shape.rows <= 8 && shape.columns <= 16; }
constexpr bool IsHuge(host::Shape shape) { return shape.rows == kHuge.rows; }
constexpr bool IsBiggest(host::Shape shape) { return shape.rows == 4096; }

// Return the ordinary routines as g++ compiles them, whatever compiles the rest: with its
// vectoriser and without.
extern "C" host::FindRoutine FindVectorisedByGcc, FindUnvectorisedByGcc;

// Another routine for the same job, under the name of its form or its library.
struct Competitor {
  SuiteIndex suite;
  uint16_t slot;
  std::string form;
  Routine routine;
  const char* onlySetting;  // null for all
  bool isTwin = false;      // whether it gives the same bits
};
std::vector<Competitor>& Competitors();

// Adds a routine to the competitors. Each unit that is linked adds its own before main.
template <class Signature>
bool Compete(const char* form, SuiteIndex suite, std::initializer_list<uint16_t> slots,
             Signature* routine, const char* onlySetting = nullptr) {
  for (const uint16_t slot : slots)
    Competitors().push_back({suite, slot, form, reinterpret_cast<Routine>(routine), onlySetting});
  return true;
}

// Adds the competitors of every form that runs here, as start-up has detected.
void AddCompetitorsByForm();

// Adds to the results how many bytes the registers of each form add in a cycle.
void DescribePorts();

void RegisterFillArray();
void RegisterKernels();

}  // namespace vantrix::bench
