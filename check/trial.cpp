#include "check/trial.h"

#include <xmmintrin.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <string_view>

#include "check/halt.h"
#include "check/words.h"
#include "host/exercise/fault.h"

namespace vantrix::check {
namespace {

using Kind = Verdict::Kind;
using host::Outcome;

constexpr char kHosts[] = "the host's routine";

// As the plug-in's start-up leaves it in the thread that calls it: flush-to-zero is set, and the
// rest is as systems set it.
constexpr uint32_t kFloatControl = 0x9F80;

std::string Count(int count, const char* what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

// Does nothing: an exercise that calls this leaves the planes as they are before a call.
uint64_t DoNothing() { return 0; }

}  // namespace

// What a thread works on and its watcher looks at. Both own
// it, and it stays if the thread does not end.
struct Trials::Trial {
  Trial(const Candidate& slot, int count, std::shared_ptr<host::Arena> memory)
      : candidate(slot), scenes(count), arena(std::move(memory)) {}

  const Candidate candidate;
  const int scenes;
  const std::shared_ptr<host::Arena> arena;

  std::mutex mutex;
  std::condition_variable ends;
  bool hasEnded = false;
  Verdict settled;  // once the trial has ended

  std::atomic<uintptr_t> thread = 0;
  std::atomic<uint32_t> calls = 0;  // begun
  std::atomic<int> scene = 0;
  std::atomic<const char*> who = kHosts;

  void Run();

 private:
  // Counts the scenes of one kind and those in which
  // results differ, and describes the first of these.
  struct Tally {
    int scenes = 0, different = 0;
    std::string first;
  };

  Verdict CompareInAll();
  bool MayGoOn(const char* fault);
  std::string InThisScene(const Outcome& outcome) const;
  const char* Call(const char* name, Routine routine, Outcome* outcome);
  bool CompareInScene();
  Verdict Equality() const;
  Verdict Differences() const;

  Tally apart_, overlapping_;
  std::vector<bool> formDiffers_;
  std::string stop_;  // what ended the trial early
  // Scenes in which the host's routine accessed memory outside its planes, and the first of these.
  int faults_ = 0;
  std::string firstFault_;
};

void Trials::Trial::Run() {
  const host::FaultStack stack;
  thread = HaltableThread();
  Verdict result;
  try {
    result = CompareInAll();
  } catch (const std::exception& error) {
    result = {Kind::kNotTried, std::string("to the end: ") + error.what()};
  }
  const std::lock_guard lock(mutex);
  settled = result;
  hasEnded = true;
  ends.notify_one();
}

Verdict Trials::Trial::CompareInAll() {
  formDiffers_.resize(candidate.forms.size());
  for (int i = 0; i < scenes; ++i) {
    scene = i;
    if (!CompareInScene()) return {Kind::kFaulted, "as " + stop_};
  }
  const bool isEqual = apart_.different + overlapping_.different == 0;
  Verdict verdict = isEqual ? Equality() : Differences();
  if (faults_ == 0) return verdict;
  return {Kind::kFaulted, "in " + Count(faults_, "scene") + ". Without them " +
                              NameOf(verdict.kind) + " " + verdict.words + " First " + firstFault_};
}

// Whether to go on after a fault of the host's routine. A routine that reads past the end of its
// planes, as hosts with room around theirs can allow, is tried in its other scenes. A routine that
// may not be the expected one is not called again.
bool Trials::Trial::MayGoOn(const char* fault) {
  constexpr int kFew = 10;
  if (candidate.decision || std::string_view(fault) != host::kWildAccess) return false;
  return ++faults_ <= std::max(kFew, scene / 2);
}

std::string Trials::Trial::InThisScene(const Outcome& outcome) const {
  return ", in scene " + std::to_string(scene) + ", " +
         host::ArgumentsText(outcome, candidate.arguments) + ".";
}

// Returns what stopped the routine, or null; the outcome is what it left until then.
const char* Trials::Trial::Call(const char* name, Routine routine, Outcome* outcome) {
  who = name;
  ++calls;
  host::Scene one(*arena, host::Choices(static_cast<uint64_t>(scene)));
  one.KeepsInputs();
  _mm_setcsr(kFloatControl);
  const char* const fault = host::FaultIn([&] { candidate.exercise(routine, one); });
  _mm_setcsr(kFloatControl);
  *outcome = one.TakeOutcome();
  if (candidate.isBoolean) outcome->result = static_cast<uint8_t>(outcome->result) != 0;
  if (fault) stop_ = std::string(name) + " " + fault + InThisScene(*outcome);
  return fault;
}

bool Trials::Trial::CompareInScene() {
  Outcome hosts;
  if (const char* const fault = Call(kHosts, candidate.hosts, &hosts)) {
    if (firstFault_.empty()) firstFault_ = stop_;
    stop_ = firstFault_;
    return MayGoOn(fault);
  }
  Tally& tally = hosts.hasOverlap ? overlapping_ : apart_;
  bool isDifferent = false;
  for (size_t i = 0; i < candidate.forms.size(); ++i) {
    const NamedRoutine& form = candidate.forms[i];
    Outcome ours, before;
    if (Call(form.name.c_str(), form.routine, &ours)) return false;
    if (host::AreSame(hosts, ours)) continue;
    if (Call(kHosts, reinterpret_cast<Routine>(DoNothing), &before)) return false;
    if (const std::string stray = WordsOfStray(before, hosts, ours); !stray.empty()) {
      stop_ = std::string(kHosts) + " " + stray + InThisScene(before);
      return false;
    }
    formDiffers_[i] = isDifferent = true;
    if (tally.first.empty())
      tally.first = form.name + ", in scene " + std::to_string(scene) + ": " +
                    host::Difference(hosts, ours, before, candidate.arguments,
                                     {"the host's result is", "ours"});
  }
  ++tally.scenes;
  tally.different += isDifferent;
  return true;
}

Verdict Trials::Trial::Equality() const {
  return {Kind::kEqual, "in " + Count(apart_.scenes + overlapping_.scenes, "scene") + ", in " +
                            Count(static_cast<int>(candidate.forms.size()), "form") + "."};
}

Verdict Trials::Trial::Differences() const {
  std::string forms;
  for (size_t i = 0; i < formDiffers_.size(); ++i)
    if (formDiffers_[i]) forms += (forms.empty() ? "" : ", ") + candidate.forms[i].name;
  const auto isAll = std::ranges::all_of(formDiffers_, [](bool differs) { return differs; });
  const auto part = [](const Tally& tally) {
    return std::to_string(tally.different) + " of " + Count(tally.scenes, "scene");
  };
  std::string words = "in " + part(apart_) + " with planes apart or the same, and in " +
                      part(overlapping_) + " with planes that overlap, in " +
                      (isAll ? "every form" : forms) + ".";
  if (apart_.different == 0)
    words += " What overlapping planes give was decided here, so a host may do otherwise.";
  return {Kind::kDifferent,
          words + " First " + (apart_.different > 0 ? apart_ : overlapping_).first};
}

const char* NameOf(Kind kind) {
  switch (kind) {
    case Kind::kEqual:
      return "equal";
    case Kind::kDifferent:
      return "different";
    case Kind::kFaulted:
      return "faulted";
    case Kind::kNotTried:
      return "not tried";
  }
  return "";
}

Verdict Trials::Try(const Candidate& candidate) {
  if (!candidate.notTried.empty()) return {Kind::kNotTried, candidate.notTried};
  try {
    return TryInThread(candidate);
  } catch (const std::exception& error) {
    return {Kind::kNotTried,
            std::string("as there is no memory or no thread for it: ") + error.what()};
  }
}

Verdict Trials::TryInThread(const Candidate& candidate) {
  if (!arena_) arena_ = std::make_shared<host::Arena>();
  const auto trial = std::make_shared<Trial>(candidate, scenes_, arena_);
  std::thread thread([trial] { trial->Run(); });
  std::unique_lock lock(trial->mutex);
  uint32_t before = 0;  // calls
  while (!trial->ends.wait_for(lock, limit_, [&] { return trial->hasEnded; })) {
    const uint32_t calls = trial->calls;
    if (calls == before && calls > 0) return Abandon(*trial, &thread);
    before = calls;
  }
  lock.unlock();
  thread.join();
  return trial->settled;
}

Verdict Trials::Abandon(const Trial& trial, std::thread* thread) {
  StayLoaded();
  const bool isHalted = HaltForGood(trial.thread);
  thread->detach();
  // No other trial may use its planes.
  arena_.reset();
  ++halted_;
  return {Kind::kFaulted, std::string(trial.who) + " did not return within " +
                              std::to_string(limit_.count()) + " ms, in scene " +
                              std::to_string(trial.scene) +
                              (isHalted ? ". Its thread stands still until the process ends"
                                        : ". Its thread could not be stopped and runs on")};
}

}  // namespace vantrix::check
