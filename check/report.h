// The report: a text, and a page for browsers that says the same.
#pragma once

#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "check/kept_file.h"
#include "check/verdict.h"

namespace vantrix::check {

// Counts the slots with each kind of verdict.
class Counts {
 public:
  void Add(Verdict::Kind kind) { ++counts_[static_cast<size_t>(kind)]; }
  int Of(Verdict::Kind kind) const { return counts_[static_cast<size_t>(kind)]; }
  // Returns all counts in words.
  std::string Words() const;

 private:
  int counts_[4] = {};
};

// What is known before the first slot: names and values, in the order of the report.
using Facts = std::vector<std::pair<std::string, std::string>>;

// The text and the page grow as the check goes on, and are on the disk before a slot is tried.
class Report {
 public:
  // Opens a report in the first folder where both files can
  // be written; none if there is no such folder.
  static std::optional<Report> In(std::span<const std::filesystem::path> folders);

  void Begin(const Facts& facts);
  // Begins the group that the next slots belong to.
  void BeginGroup(const std::string& title, const std::string& about);
  void Name(const Candidate& candidate);
  void Settle(const Candidate& candidate, const Verdict& verdict);
  void EndGroup();
  void End(const Counts& counts, const std::string& more);

  // Whether everything was written.
  bool IsGood() const { return text_.IsGood() && page_.IsGood(); }
  const std::filesystem::path& TextPath() const { return text_.Path(); }
  const std::filesystem::path& PagePath() const { return page_.Path(); }

 private:
  void Keep();
  Report(KeptFile text, KeptFile page) : text_(std::move(text)), page_(std::move(page)) {}

  KeptFile text_, page_;
};

}  // namespace vantrix::check
