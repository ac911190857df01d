#include "host/demo/session.h"

#include <chrono>
#include <cstdio>

#include "host/paths.h"

namespace vantrix::host {

double TimeOf(const std::function<void()>& work) {
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  work();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

void Session::Begin(const std::string& title, double from, double to) {
  sections_.push_back({title, {}, {}});
  from_ = from;
  to_ = to;
  Advance(0);
}

void Session::Advance(double part) {
  progress_.Show(from_ + part * (to_ - from_), sections_.back().title);
}

void Session::Note(SuiteIndex suite, uint16_t slot, const Times& times, bool isSame) {
  const std::string form = index_ ? FormOf(*index_, suite, slot, tables_.Live(suite, slot)) : "";
  isGood_ &= isSame;
  AddRuns({suite, slot, form, 1, isSame, times}, &notShown_);
}

void Session::Show(const std::string& title, const std::string& text, std::vector<Figure> figures) {
  sections_.back().exhibits.push_back({title, text, std::move(figures), false, notShown_});
  notShown_.clear();
}

void Session::ShowChange(const std::string& title, const std::string& text, const Picture& before,
                         const Picture& after) {
  Show(title, text, BeforeAndAfter(before, after));
  sections_.back().exhibits.back().isChange = true;
}

void Session::Save(const std::string& name, const Picture& picture) {
  std::string error;
  const std::filesystem::path path = folder_ / name;
  if (WritePicture(path, picture, &error)) {
    progress_.Clear();
    std::printf("  %s\n", TextOf(path).c_str());
    std::fflush(stdout);
    return;
  }
  std::fprintf(stderr, "vantrix-host: %s\n", error.c_str());
  isGood_ = false;
}

std::vector<SlotRuns> Session::AllRuns() const {
  std::vector<SlotRuns> all;
  for (const Section& section : sections_)
    for (const Exhibit& exhibit : section.exhibits)
      for (const SlotRuns& runs : exhibit.slots) AddRuns(runs, &all);
  return all;
}

}  // namespace vantrix::host
