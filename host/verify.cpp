#include "host/verify.h"

#include <algorithm>
#include <cstdio>

#include "host/exercise/fault.h"
#include "host/progress.h"
#include "host/recorder.h"
#include "host/services.h"

namespace vantrix::host {
namespace {

// The result for a slot: in how many scenes it was tried, and what is wrong, if anything.
struct Verdict {
  int scenes = 0;
  std::string wrong;
  int scene = -1;  // the last one tried
};

class Verification {
 public:
  Verification(const Tables& tables, const FormIndex* index, const VerifyOptions& options)
      : tables_(tables), index_(index), options_(options) {}

  bool Run() {
    for (const SuiteEntry& suite : Catalog())
      for (size_t slot = 0; slot < tables_.EntryCount(suite.index); ++slot)
        Try(suite, static_cast<uint16_t>(slot));
    if (passed_ + failed_ == 0 && !options_.slot.empty())
      std::fprintf(stderr, "vantrix-host: %s\n", WritesNoSlot(options_.slot).c_str());
    std::printf("%d passed, %d failed\n", passed_, failed_);
    return failed_ == 0 && passed_ > 0;
  }

 private:
  void Try(const SuiteEntry& suite, uint16_t slot) {
    const std::string name = SlotName(suite, slot);
    if (!options_.slot.empty() && options_.slot != name) return;
    const auto isThis = [=](const Slot& line) { return line.index == slot; };
    const auto line = std::ranges::find_if(suite.slots, isThis);
    const bool isOpen = std::ranges::any_of(suite.slots, [&](const Slot& other) {
      return isThis(other) && ProcessorOpens(other.gate);
    });
    const bool isWritten = tables_.IsChanged(suite.index, slot);
    if (!isOpen && !isWritten) return;

    Verdict verdict;
    if (isOpen != isWritten)
      verdict.wrong = isWritten ? "was written and should not be" : "was not written";
    else if (suite.index == kCore)
      verdict.wrong = WrongInNoiseHook(tables_.Live(kCore, slot));
    else if (const Reference* const reference = FindReference(suite, slot))
      verdict = Compare(suite, *reference);
    else
      verdict.wrong = WrongInSeveralPasses(suite.index, slot);
    Print(name, line == suite.slots.end() ? "" : line->name, suite.index, slot, verdict);
  }

  Verdict Compare(const SuiteEntry& suite, const Reference& reference) {
    Verdict verdict;
    const Slot* const slot = FindSlot(suite, reference.slot);
    const std::string names = slot && slot->arguments ? slot->arguments : "";
    const int first = options_.scene.value_or(0);
    const int end = options_.scene ? first + 1 : options_.scenes;
    for (int scene = first; scene < end && verdict.wrong.empty(); ++scene) {
      const auto compare = [&] {
        verdict.wrong =
            CompareRoutines(reference.exercise, tables_.Default(suite.index, reference.slot),
                            tables_.Live(suite.index, reference.slot),
                            Scene(arena_, Choices(static_cast<uint64_t>(scene))), names);
      };
      if (const char* const fault = FaultIn(compare)) verdict.wrong = fault;
      verdict.scene = scene;
      ++verdict.scenes;
      progress_.Show((compared_ + double(scene + 1 - first) / (end - first)) / CountCompared(),
                     std::string(suite.name) + ':' + std::to_string(reference.slot) + ", scene " +
                         std::to_string(scene + 1) + " of " + std::to_string(end));
    }
    ++compared_;
    return verdict;
  }

  static std::string WrongInSeveral(const std::function<const char*(int)>& tryOnce) {
    for (int time = 0; time < 100; ++time) {
      const char* wrong = nullptr;
      if (const char* const fault = FaultIn([&] { wrong = tryOnce(time); })) wrong = fault;
      if (wrong) return wrong;
    }
    return {};
  }
  std::string WrongInSeveralPasses(SuiteIndex suite, uint16_t slot) const {
    return WrongInSeveral([=, this](int time) {
      return WrongInPassingThrough(tables_.Live(suite, slot), suite, slot,
                                   static_cast<uint64_t>(time));
    });
  }
  static std::string WrongInNoiseHook(Routine hook) {
    return WrongInSeveral([=](int time) -> const char* {
      uint8_t noise[64];
      const auto count = static_cast<uint32_t>(time);
      const Services::Noise sent{noise + time % 64, count, 4 * count};
      services.noise = {};
      const uint64_t answer =
          reinterpret_cast<NoiseBufferRoutine*>(hook)(sent.base, sent.count, sent.size);
      if (services.noise != sent) return "the host's own routine was not called with all arguments";
      if (answer != kNoiseTaken) return "the result is not the host's own routine's";
      return nullptr;
    });
  }

  void Print(const std::string& name, const char* routine, SuiteIndex suite, uint16_t slot,
             const Verdict& verdict) {
    const std::string form = index_ ? FormOf(*index_, suite, slot, tables_.Live(suite, slot)) : "";
    const bool isGood = verdict.wrong.empty();
    progress_.Clear();
    ++(isGood ? passed_ : failed_);
    std::printf("%s %-8s %-6s %-30s ", isGood ? "ok    " : "FAILED", name.c_str(), form.c_str(),
                routine);
    if (!isGood && verdict.scene >= 0)
      std::printf(" scene %d: %s\n       again: %s verify --slot %s --scene %d\n", verdict.scene,
                  verdict.wrong.c_str(), options_.program.c_str(), name.c_str(), verdict.scene);
    else if (!isGood)
      std::printf(" %s\n", verdict.wrong.c_str());
    else if (verdict.scenes > 0)
      std::printf(" %d scene%s\n", verdict.scenes, verdict.scenes == 1 ? "" : "s");
    else
      std::printf(suite == kCore ? " noted and handed on\n" : " passed through\n");
    std::fflush(stdout);
  }

  // Returns how many slots are compared in scenes.
  int CountCompared() const {
    if (!options_.slot.empty()) return 1;
    size_t count = 0;
    for (const SuiteEntry& suite : Catalog()) count += suite.references.size();
    return static_cast<int>(count);
  }

  const Tables& tables_;
  const FormIndex* index_;
  const VerifyOptions& options_;
  const FaultWatch watch_;
  const FaultStack stack_;
  Arena arena_;
  int passed_ = 0, failed_ = 0;
  Progress progress_;
  int compared_ = 0;  // slots so far
};

}  // namespace

bool Verify(const Tables& tables, const FormIndex* index, const VerifyOptions& options) {
  return Verification(tables, index, options).Run();
}

}  // namespace vantrix::host
