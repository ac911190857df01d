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

// Cycles of this processor per tick of its time stamp counter, measured once.
double CyclesPerTick();

// Registers a benchmark of one routine: the exercise builds the scene of this shape, and the
// routine is called in it again and again. Counts cycles per sample of the shape and cycles per
// row.
void Register(const std::string& name, host::Exercise* exercise, Routine routine, host::Shape shape,
              host::Measured how);

// The arena in which all routines are measured, one after another.
host::Arena& MeasuringArena();

// Counts a run that measured, and tells now and then how many there were. A benchmark's first
// runs only find out how many iterations it takes.
class Progress {
 public:
  void Count(const benchmark::State& state);

 private:
  int64_t iterations_ = 0;  // of the run before
};

// What is done in a slot, in one particular setting: a job for several routines.
struct Case {
  SuiteIndex suite;
  uint16_t slot;
  std::string setting;  // empty for the usual one
  host::Exercise* exercise;
  std::vector<host::Shape> shapes;
  host::Measured how = {};  // where planes are misaligned the kernels alone are measured
};
std::vector<Case> Cases();

// The three sizes of a plane, 16 KiB, 256 KiB and 16 MiB, and rows that end early.
inline constexpr host::Shape kPlanes[] = {{64, 256}, {256, 1024}, {4096, 4096}};
inline constexpr host::Shape kShortRows[] = {{64, 5}, {64, 15}, {64, 33}, {64, 100}};
constexpr bool IsShortRow(host::Shape shape) { return shape.rows == 64 && shape.columns <= 100; }
constexpr bool IsBiggest(host::Shape shape) { return shape.rows == 4096; }

// The ordinary routines as g++ compiles them, whatever compiles the rest: with its vectoriser
// and without.
extern "C" host::FindRoutine FindVectorisedByGcc, FindUnvectorisedByGcc;

// Other routines for the same jobs, by the names of their forms.
struct Competitor {
  SuiteIndex suite;
  uint16_t slot;
  std::string form;
  Routine routine;
  const char* onlySetting;  // null for all
  bool isTwin = false;      // whether it gives the same to the bit
};
std::vector<Competitor>& Competitors();

// Adds a routine to them; a unit that is linked adds those it has while the program starts.
template <class Signature>
bool Compete(const char* form, SuiteIndex suite, std::initializer_list<uint16_t> slots,
             Signature* routine, const char* onlySetting = nullptr) {
  for (const uint16_t slot : slots)
    Competitors().push_back({suite, slot, form, reinterpret_cast<Routine>(routine), onlySetting});
  return true;
}

// Adds those of every form that runs here, which start-up has found out.
void AddCompetitorsByForm();

// Tells, beside the results, how many bytes the registers of each form add in a cycle.
void DescribePorts();

void RegisterFillArray();
void RegisterKernels();

}  // namespace vantrix::bench
