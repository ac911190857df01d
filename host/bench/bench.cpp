#include "host/bench/bench.h"

#include <algorithm>
#include <cstdio>

#include "host/bench/crossings.h"
#include "host/bench/table.h"
#include "host/bench/turns.h"
#include "host/exercise/fault.h"
#include "host/ordinary/ordinary.h"
#include "host/progress.h"

namespace vantrix::host {
namespace {

// Named by the bytes of the largest plane, at one byte per sample. Planes of larger samples have
// fewer rows, and as many columns.
struct Size {
  const char* name;
  Shape shape;
  bool isShortRows = false, isFromMemory = false;
};
constexpr Size kSizes[] = {
    {"4 KiB", {32, 128}},      {"64 KiB", {256, 256}},      {"1 MiB", {512, 2048}, false, true},
    {"64 x 5", {64, 5}, true}, {"64 x 15", {64, 15}, true}, {"64 x 33", {64, 33}, true},
};
constexpr Size kBlock = {"1 x 128", {1, 128}};
// More than any exercise needs for these sizes, or for the shape that BytesPerSample uses.
constexpr size_t kRegionBytes = size_t{4} << 20;

struct Served {
  const SuiteEntry* suite;
  const Slot* slot;
  const Reference* reference;

  std::string Name() const { return SlotName(*suite, slot->index); }
};

// Returns the slots that a kernel of the plug-in serves here, in order.
std::vector<Served> ServedSlots(const Tables& tables) {
  std::vector<Served> served;
  for (const SuiteEntry& suite : Catalog())
    for (const Reference& reference : suite.references) {
      const auto slot = std::ranges::find_if(suite.slots, [&](const Slot& line) {
        return line.index == reference.slot && line.IsServed() && ProcessorOpens(line.gate);
      });
      if (slot != suite.slots.end() && tables.IsChanged(suite.index, reference.slot))
        served.push_back({&suite, &*slot, &reference});
    }
  return served;
}

class Bench {
 public:
  Bench(const Tables& tables, const FormIndex* index, const BenchOptions& options)
      : tables_(tables), index_(index), options_(options) {}

  bool Run() {
    std::vector<Served> slots = ServedSlots(tables_);
    if (!options_.slots.empty())
      std::erase_if(slots, [&](const Served& served) {
        return std::ranges::find(options_.slots, served.Name()) == options_.slots.end();
      });
    Print('\n' + HeadOfTable());
    bool isGood = true;
    for (const Served& served : slots) {
      isGood &= Measure(served, slots.size());
      ++slotsDone_;
    }
    progress_.Clear();
    Print(SumsOf(lines_));
    return isGood;
  }

 private:
  // Measures a slot. Returns false if a routine does not do
  // what the host's own does; it is not measured.
  bool Measure(const Served& served, size_t count) {
    const SuiteIndex suite = served.suite->index;
    const uint16_t slot = served.slot->index;
    const Routine live = tables_.Live(suite, slot), own = tables_.Default(suite, slot);
    const Routine ordinary = FindVectorised(suite, slot);
    const std::string form = index_ ? FormOf(*index_, suite, slot, live) : "";
    Print(served.Name() + ' ' + served.slot->name + ", " + (form.empty() ? "form not told" : form) +
          '\n');
    Exercise* const exercise = suite == kPath ? FoldOutline : served.reference->exercise;
    const auto isSame = [&](Routine routine, const char* which) {
      const std::string wrong = WrongWith(exercise, own, routine);
      if (!wrong.empty()) Print(std::string("  FAILED: ") + which + ": " + wrong + '\n');
      return wrong.empty();
    };
    if (!isSame(live, "the plug-in's") || !isSame(ordinary, "the ordinary one")) return false;

    // The ordinary routine comes last, whether it is the host's own or not.
    std::vector<Routine> routines{live, own};
    if (ordinary != own) routines.push_back(ordinary);
    const int32_t bytes = BytesPerSample(arena_, exercise);
    const auto sizes = bytes > 0 ? std::span<const Size>(kSizes) : std::span(&kBlock, 1);
    for (size_t i = 0; i < sizes.size(); ++i) {
      const Size& size = sizes[i];
      progress_.Show((slotsDone_ + static_cast<double>(i) / static_cast<double>(sizes.size())) /
                         static_cast<double>(count),
                     served.Name() + ", " + size.name + ", slot " + std::to_string(slotsDone_ + 1) +
                         " of " + std::to_string(count));
      Shape shape = size.shape;
      if (!size.isShortRows && bytes > 1) shape.rows /= bytes;
      std::vector<double> ticks =
          TakeTurns(arena_, {exercise, shape, size.isFromMemory}, routines, options_.seconds);
      for (double& of : ticks) of /= static_cast<double>(shape.rows) * shape.columns;
      lines_.push_back(
          {suite, size.name, size.isShortRows, {ticks.front(), ticks.back(), ticks[1]}});
      Print(TextOf(lines_.back()));
    }
    return true;
  }

  // Returns what a routine does wrong: before it is timed it must do what the host's own does.
  std::string WrongWith(Exercise* exercise, Routine own, Routine routine) {
    std::string wrong;
    const char* const fault =
        FaultIn([&] { wrong = CompareMeasured(arena_, exercise, own, routine, kLikePictures); });
    return fault ? fault : wrong;
  }

  // Prints line by line, so that no character is split on its way to a console.
  void Print(const std::string& text) {
    progress_.Clear();
    for (size_t at = 0; at < text.size();) {
      const size_t end = text.find('\n', at) + 1;
      std::fwrite(&text[at], 1, end - at, stdout);
      std::fflush(stdout);
      at = end;
    }
  }

  const Tables& tables_;
  const FormIndex* index_;
  const BenchOptions& options_;
  Arena arena_{8, kRegionBytes};
  std::vector<Line> lines_;
  int slotsDone_ = 0;
  Progress progress_;
};

}  // namespace

std::string WrongWithSlots(const Tables& tables, const std::vector<std::string>& slots) {
  const std::vector<Served> served = ServedSlots(tables);
  for (const std::string& name : slots) {
    if (std::ranges::any_of(served, [&](const Served& one) { return one.Name() == name; }))
      continue;
    for (const SuiteEntry& suite : Catalog())
      for (size_t slot = 0; slot < tables.EntryCount(suite.index); ++slot) {
        const auto index = static_cast<uint16_t>(slot);
        if (SlotName(suite, index) == name && tables.IsChanged(suite.index, index))
          return "slot " + name + " has no kernel to measure: it is handed on to the host's own";
      }
    return WritesNoSlot(name);
  }
  return {};
}

bool RunBench(const Tables& tables, const FormIndex* index, const BenchOptions& options) {
  return Bench(tables, index, options).Run();
}

}  // namespace vantrix::host
