// One run of the demonstration: the photograph, the live tables, the times, and what to show.
#pragma once

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "host/demo/exhibit.h"
#include "host/demo/picture.h"
#include "host/forms.h"
#include "host/ordinary/ordinary.h"
#include "host/progress.h"
#include "host/tables.h"

namespace vantrix::host {

class Session {
 public:
  Session(const Tables& tables, const FormIndex* index, Picture photo, std::filesystem::path folder)
      : tables_(tables), index_(index), photo_(std::move(photo)), folder_(std::move(folder)) {}

  const Picture& Photo() const { return photo_; }

  // Begins a section: what is shown from now on has this title. The section takes the part of the
  // whole demonstration's time from `from` to `to`.
  void Begin(const std::string& title, double from, double to);
  // Reports that this part of the section is done.
  void Advance(double part);
  // Says what the exhibits of the section have in common.
  void Explain(const std::string& text) { sections_.back().text = text; }

  // Works on *target with the routines of a slot, each time from its present value: once with the
  // host's own, then several times with the ordinary and the live one in turn. The best times
  // count. Leaves the live routine's result, which must equal that of the host's own.
  template <class Target>
  Times Run(SuiteIndex suite, uint16_t slot, Target* target,
            const std::function<void(Routine routine, Target& target)>& work);

  // Shows pictures with the runs since the last ones shown.
  void Show(const std::string& title, const std::string& text, std::vector<Figure> figures);
  // Shows a picture before and after, both of one size.
  void ShowChange(const std::string& title, const std::string& text, const Picture& before,
                  const Picture& after);

  // Writes a picture into the folder.
  void Save(const std::string& name, const Picture& picture);

  const std::vector<Section>& Sections() const { return sections_; }
  // Returns the runs of all sections, in the order in which slots were first run.
  std::vector<SlotRuns> AllRuns() const;
  // Whether every slot gave the result of the host's own routine and every picture was written.
  bool IsGood() const { return isGood_; }
  // Adds a condition that must also hold.
  void Require(bool isSo) { isGood_ &= isSo; }

 private:
  void Note(SuiteIndex suite, uint16_t slot, const Times& times, bool isSame);

  const Tables& tables_;
  const FormIndex* index_;
  Picture photo_;
  std::filesystem::path folder_;
  std::vector<Section> sections_;
  std::vector<SlotRuns> notShown_;
  Progress progress_;
  double from_ = 0, to_ = 0;
  bool isGood_ = true;
};

// Returns the seconds that work takes.
double TimeOf(const std::function<void()>& work);

template <class Target>
Times Session::Run(SuiteIndex suite, uint16_t slot, Target* target,
                   const std::function<void(Routine routine, Target& target)>& work) {
  const Target original = *target;
  const auto run = [&](Routine routine) {
    *target = original;
    return TimeOf([&] { work(routine, *target); });
  };
  run(tables_.Default(suite, slot));
  const Target expected = *target;
  Times best{1e30, 1e30};
  double spent = 0;
  bool isSame = true;
  for (int turn = 0; turn < 20 && (turn < 3 || spent < 0.1); ++turn) {
    const double byOrdinary = run(FindVectorised(suite, slot));
    const double byPlugin = run(tables_.Live(suite, slot));
    isSame &= *target == expected;
    best = {std::min(best.byOrdinary, byOrdinary), std::min(best.byPlugin, byPlugin)};
    spent += byOrdinary + byPlugin;
  }
  Note(suite, slot, best, isSame);
  return best;
}

}  // namespace vantrix::host
