// One run of the demonstration: the photograph, the live tables, and the times.
#pragma once

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "host/demo/picture.h"
#include "host/tables.h"

namespace vantrix::host {

class Session {
 public:
  Session(const Tables& tables, Picture photo, std::filesystem::path folder)
      : tables_(tables), photo_(std::move(photo)), folder_(std::move(folder)) {}

  const Picture& Photo() const { return photo_; }

  // Works on *target with the routine in a slot: by the host's default and by the live
  // one in turn, several times, each from what *target is now; the best times count.
  // Leaves the live routine's result, which must equal the default's.
  struct Times {
    double byDefault, byPlugin;  // seconds
  };
  template <class Target>
  Times Run(SuiteIndex suite, uint16_t slot, Target* target,
            const std::function<void(Routine routine, Target& target)>& work);

  // Writes a picture into the folder.
  void Save(const std::string& name, const Picture& picture);

  // The table of times; and whether every slot gave the default's result and every
  // picture was written.
  std::string Report() const;
  bool IsGood() const { return isGood_; }

 private:
  struct Row {
    SuiteIndex suite;
    uint16_t slot;
    Times times;  // over all runs of the slot
    bool isSame;
  };
  void Note(SuiteIndex suite, uint16_t slot, Times times, bool isSame);

  const Tables& tables_;
  Picture photo_;
  std::filesystem::path folder_;
  std::vector<Row> rows_;
  bool isGood_ = true;
};

// Seconds that work takes.
double TimeOf(const std::function<void()>& work);

template <class Target>
Session::Times Session::Run(SuiteIndex suite, uint16_t slot, Target* target,
                            const std::function<void(Routine routine, Target& target)>& work) {
  const Target original = *target;
  const auto run = [&](Routine routine) {
    *target = original;
    return TimeOf([&] { work(routine, *target); });
  };
  Times best{1e30, 1e30};
  double spent = 0;
  bool isSame = true;
  for (int turn = 0; turn < 20 && (turn < 3 || spent < 0.1); ++turn) {
    const double byDefault = run(tables_.Default(suite, slot));
    const Target expected = *target;
    const double byPlugin = run(tables_.Live(suite, slot));
    isSame &= *target == expected;
    best = {std::min(best.byDefault, byDefault), std::min(best.byPlugin, byPlugin)};
    spent += byDefault + byPlugin;
  }
  Note(suite, slot, best, isSame);
  return best;
}

}  // namespace vantrix::host
