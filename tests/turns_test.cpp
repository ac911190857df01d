// Measurements in turn: the same work for each routine, in planes that are restored.
#include "host/bench/turns.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "host/bench/ticks.h"
#include "host/exercise/exercises.h"
#include "suites/blend/signatures.h"

namespace vantrix {
namespace {

using host::Ticks;

// Each call of a routine below: which it was, and the first sample of the plane that it changes.
struct Note {
  int routine;
  uint8_t sample;
};
std::vector<Note> notes;

// Takes kTicks ticks, and changes every sample.
template <int kRoutine, int kTicks>
void TakeTicks(const uint8_t*, uint8_t* d, int32_t rows, int32_t columns, int32_t, int32_t stride) {
  const uint64_t start = Ticks();
  notes.push_back({kRoutine, *d});
  for (int32_t y = 0; y < rows; ++y)
    for (int32_t x = 0; x < columns; ++x) ++d[intptr_t{y} * stride + x];
  while (Ticks() - start < kTicks) {
  }
}
template <int kRoutine, int kTicks>
const Routine kTakeTicks =
    reinterpret_cast<Routine>(static_cast<PlaneBlend*>(TakeTicks<kRoutine, kTicks>));

class TurnsTest : public ::testing::Test {
 protected:
  TurnsTest() { notes.clear(); }
  host::Arena arena;
};

TEST_F(TurnsTest, MeasuresEachRoutineInPlanesAsTheyWere) {
  constexpr int kShort = 20000, kLong = 60000;
  const Routine routines[] = {kTakeTicks<0, kShort>, kTakeTicks<1, kLong>};
  for (const bool isFromMemory : {false, true}) {
    notes.clear();
    const auto ticks =
        host::TakeTurns(arena, {host::ExercisePlaneBlend, {3, 5}, isFromMemory}, routines, 0.01);
    EXPECT_GE(ticks[0], 0.9 * kShort);
    EXPECT_LT(ticks[0], 2.0 * kShort);
    EXPECT_GE(ticks[1], 0.9 * kLong);
    EXPECT_LT(ticks[1], 2.0 * kLong);
    EXPECT_TRUE(std::ranges::all_of(
        notes, [](const Note& note) { return note.sample == notes.front().sample; }));
    // The routines take turns: notes change often from one to the other.
    const auto changes = std::ranges::count_if(notes, [before = -1](const Note& note) mutable {
      return std::exchange(before, note.routine) != note.routine;
    });
    EXPECT_GE(changes, 10);
  }
}

TEST_F(TurnsTest, GoesFiveTimesRoundWhateverTheTime) {
  const Routine routines[] = {kTakeTicks<0, 1000>, kTakeTicks<1, 1000>};
  host::TakeTurns(arena, {host::ExercisePlaneBlend, {3, 5}, false}, routines, 1e-9);
  const auto calls = std::ranges::count(notes, 1, &Note::routine);
  EXPECT_EQ(calls, 1 + 5) << "one to see what it changes";
}

TEST_F(TurnsTest, TellsTheBytesOfASample) {
  EXPECT_EQ(host::BytesPerSample(arena, host::ExercisePlaneBlend), 1);
  EXPECT_EQ(host::BytesPerSample(arena, host::ExerciseRescaleWords), 2);
  EXPECT_EQ(host::BytesPerSample(arena, host::ExerciseBlockSAD), 0);
}

TEST_F(TurnsTest, FindsRoutinesThatDoOtherThings) {
  const auto compare = [&](Routine a, Routine b) {
    return host::CompareMeasured(arena, host::ExercisePlaneBlend, a, b, host::kLikePictures);
  };
  constexpr PlaneBlend* kNothing = [](const uint8_t*, uint8_t*, int32_t, int32_t, int32_t,
                                      int32_t) {};
  EXPECT_EQ(compare(kTakeTicks<0, 0>, kTakeTicks<1, 0>), "");
  EXPECT_NE(compare(kTakeTicks<0, 0>, reinterpret_cast<Routine>(kNothing)), "");
}

}  // namespace
}  // namespace vantrix
