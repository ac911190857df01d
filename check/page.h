// The parts of the report's page. Each can be the last: a page that breaks off is still readable.
#pragma once

#include <string>

#include "check/report.h"

namespace vantrix::check::page {

std::string Head(const std::string& title, const std::string& about, const Facts& facts);
std::string GroupStart(const std::string& title, const std::string& about);
// Until its end follows, a row says that the process ended while its slot was tried.
std::string RowStart(const Candidate& candidate);
std::string RowEnd(const Candidate& candidate, const Verdict& verdict);
std::string GroupEnd();
// Shown above the groups.
std::string Foot(const std::string& counts, const std::string& more);

}  // namespace vantrix::check::page
