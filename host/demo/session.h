// One run of the demonstration: the photograph, the live tables, and the times.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/demo/picture.h"
#include "host/tables.h"

namespace vantrix::host {

class Session {
 public:
  Session(const Tables& tables, Picture photo, std::string folder)
      : tables_(tables), photo_(std::move(photo)), folder_(std::move(folder)) {}

  const Picture& Photo() const { return photo_; }

  // Works on *target with the routine in a slot: by the host's default, then by the
  // live one. Each is run several times from what *target is now, and its best time
  // kept. Leaves the live routine's result, which must equal the default's.
  template <class Target>
  void Run(SuiteIndex suite, uint16_t slot, Target* target,
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
    double defaultTime = 0, liveTime = 0;  // seconds, over all runs of the slot
    bool isSame = true;
  };
  Row& RowOf(SuiteIndex suite, uint16_t slot);

  const Tables& tables_;
  Picture photo_;
  std::string folder_;
  std::vector<Row> rows_;
  bool isGood_ = true;
};

// Seconds of the best of a few calls of work; prepare is called before each, untimed.
double BestTime(const std::function<void()>& prepare, const std::function<void()>& work);

template <class Target>
void Session::Run(SuiteIndex suite, uint16_t slot, Target* target,
                  const std::function<void(Routine routine, Target& target)>& work) {
  Row& row = RowOf(suite, slot);
  const Target original = *target;
  const auto time = [&](Routine routine) {
    return BestTime([&] { *target = original; }, [&] { work(routine, *target); });
  };
  row.defaultTime += time(tables_.Default(suite, slot));
  const Target expected = *target;
  row.liveTime += time(tables_.Live(suite, slot));
  row.isSame &= *target == expected;
  isGood_ &= row.isSame;
}

}  // namespace vantrix::host
