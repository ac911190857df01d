#include "host/bench/turns.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>

#include "host/bench/ticks.h"
#include "host/services.h"

namespace vantrix::host {
namespace {

using Clock = std::chrono::steady_clock;
using Call = std::function<void()>;

Scene FirstScene(Arena& arena) { return Scene(arena, Choices(uint64_t{1})); }

// The planes of a scene as each call must find them.
class Planes {
 public:
  Planes(std::span<Outcome::Window> planes, bool isFromMemory)
      : planes_(planes), isChanged_(planes.size()), isFromMemory_(isFromMemory) {
    for (Outcome::Window& plane : planes_)
      plane.before.assign(plane.start, plane.start + plane.after.size());
  }

  // Notes what a call changed. From now on that is restored before each call.
  void NoteChanges() {
    for (size_t i = 0; i < planes_.size(); ++i)
      if (std::memcmp(planes_[i].start, planes_[i].before.data(), planes_[i].before.size()) != 0)
        isChanged_[i] = isAnyChanged_ = true;
  }

  bool NeedPreparing() const { return isAnyChanged_ || isFromMemory_; }
  void Prepare() const {
    for (size_t i = 0; i < planes_.size(); ++i) {
      const Outcome::Window& plane = planes_[i];
      const auto start = const_cast<uint8_t*>(plane.start);
      if (isChanged_[i]) std::memcpy(start, plane.before.data(), plane.before.size());
      constexpr size_t kLine = 64;
      for (size_t at = 0; isFromMemory_ && at < plane.before.size(); at += kLine)
        _mm_clflush(start + at);
    }
    _mm_mfence();
  }

 private:
  std::span<Outcome::Window> planes_;
  std::vector<bool> isChanged_;
  bool isAnyChanged_ = false;
  const bool isFromMemory_;
};

uint64_t TicksOf(const Call& call, int calls) {
  const uint64_t start = Ticks();
  for (int i = 0; i < calls; ++i) call();
  return Ticks() - start;
}

// Returns what is measured for a call that does nothing.
uint64_t TicksOfNothing() {
  static const uint64_t ticks = [] {
    uint64_t least = ~uint64_t{0};
    for (int i = 0; i < 1000; ++i) least = std::min(least, TicksOf([] {}, 1));
    return least;
  }();
  return ticks;
}

// Returns the ticks per call. Calls are measured together, or one at a time if planes are prepared.
double Turn(const Call& call, const Planes& planes, int calls) {
  uint64_t ticks = 0;
  if (!planes.NeedPreparing()) {
    ticks = TicksOf(call, calls);
  } else {
    for (int i = 0; i < calls; ++i) {
      planes.Prepare();
      ticks += std::max(TicksOf(call, 1), TicksOfNothing() + 1) - TicksOfNothing();
    }
  }
  return static_cast<double>(std::max<uint64_t>(ticks, 1)) / calls;
}

class Turns {
 public:
  Turns(const Call& call, Scene& scene, const Job& job, std::span<const Routine> routines)
      : call_(call), scene_(scene), routines_(routines), planes_(scene.Planes(), job.isFromMemory) {
    for (const Routine routine : routines_) {
      scene_.Substitute(routine);
      planes_.Prepare();
      call_();
      planes_.NoteChanges();
    }
  }

  std::vector<double> Take(double seconds) {
    constexpr double kLongest = 50e-6;
    const double ticks = std::min(kLongest, seconds / kTurns) * TicksPerSecond();
    std::vector<int> calls;
    std::vector<double> least;
    for (const Routine routine : routines_) {
      constexpr double kMostCalls = 1e6;
      scene_.Substitute(routine);
      least.push_back(Turn(call_, planes_, 1));
      calls.push_back(static_cast<int>(std::clamp(ticks / least.back(), 1.0, kMostCalls)));
    }
    const auto end = Clock::now() +
                     std::chrono::duration<double>(seconds * static_cast<double>(routines_.size()));
    for (int turn = 1; turn < kTurns || Clock::now() < end; ++turn)
      for (size_t i = 0; i < routines_.size(); ++i) {
        scene_.Substitute(routines_[i]);
        least[i] = std::min(least[i], Turn(call_, planes_, calls[i]));
      }
    return least;
  }

 private:
  static constexpr int kTurns = 5;  // at least

  const Call& call_;
  Scene& scene_;
  std::span<const Routine> routines_;
  Planes planes_;
};

}  // namespace

std::vector<double> TakeTurns(Arena& arena, const Job& job, std::span<const Routine> routines,
                              double seconds) {
  std::vector<double> ticks;
  Scene scene = FirstScene(arena);
  const auto run = [&](const Call& call) {
    ticks = Turns(call, scene, job, routines).Take(seconds);
  };
  scene.Measure(job.shape, run, kLikePictures);
  job.exercise(routines.front(), scene);
  return ticks;
}

std::string CompareMeasured(Arena& arena, Exercise* exercise, Routine expected, Routine actual,
                            Measured how) {
  Scene scene = FirstScene(arena);
  const auto run = [](const Call& call) {
    services.polls = 0;  // results count them
    call();
  };
  scene.Measure({24, 100}, run, how);
  return CompareRoutines(exercise, expected, actual, scene);
}

int32_t BytesPerSample(Arena& arena, Exercise* exercise) {
  constexpr Shape kLarge{512, 512};
  size_t most = 0;
  Scene scene = FirstScene(arena);
  const auto look = [&](const Call&) {
    for (const Outcome::Window& plane : scene.Planes()) most = std::max(most, plane.after.size());
  };
  scene.Measure(kLarge, look);
  exercise(nullptr, scene);
  return static_cast<int32_t>(
      std::lround(static_cast<double>(most) / (kLarge.rows * kLarge.columns)));
}

}  // namespace vantrix::host
