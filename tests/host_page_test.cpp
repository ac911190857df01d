// Compares docs/HOST.md with the sources: the tables of slots, suites, structures and reports are
// read from the page and compared line by line.
#include <gmock/gmock.h>

#include <cstddef>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "host/catalog.h"
#include "suites/filter/signatures.h"
#include "suites/path/signatures.h"

namespace vantrix {
namespace {

using ::testing::UnorderedElementsAreArray;

std::string ReadFile(const std::string& name) {
  std::ifstream file(std::string(VANTRIX_SOURCE_DIR "/") + name);
  return {std::istreambuf_iterator<char>(file), {}};
}

// Returns the lines of the table with this head, without the last column if it only holds comments.
using Lines = std::vector<std::string>;
Lines TableUnder(const std::string& heading, const std::string& head, bool hasComments = false) {
  const std::string page = ReadFile("docs/HOST.md");
  const size_t section = page.find("\n" + heading + "\n");
  const size_t table = page.find("\n" + head + "\n", section);
  Lines lines;
  if (section == std::string::npos || table == std::string::npos) return lines;
  std::istringstream rest(page.substr(table + 1));
  std::string line;
  for (int i = 0; std::getline(rest, line) && line.starts_with("|"); ++i) {
    if (i < 2) continue;
    if (hasComments) line.resize(line.rfind('|', line.size() - 3) + 1);
    lines.push_back(line);
  }
  return lines;
}

template <class... Cell>
std::string Line(const Cell&... cell) {
  std::ostringstream line;
  ((line << "| " << cell << " "), ...) << "|";
  return line.str();
}

TEST(HostPageTest, ListsTheServedSlotsAndNoOther) {
  std::set<std::string> expected;
  for (const host::SuiteEntry& suite : host::Catalog())
    for (const Slot& slot : suite.slots)
      if (slot.IsServed())
        expected.insert(Line(suite.name, slot.index, std::string("`Vantrix") + slot.name + "`"));
  EXPECT_THAT(TableUnder("## Slots", "| suite | slot | type |"),
              UnorderedElementsAreArray(expected));
}

TEST(HostPageTest, ListsTheSuites) {
  Lines expected;
  for (const host::SuiteEntry& suite : host::Catalog()) {
    const SuiteFormat& format = kSuiteFormats[suite.index];
    expected.push_back(Line(suite.name, format.version, format.minimumCount, format.savedEntries));
  }
  EXPECT_EQ(TableUnder("## The block", "| suite | version | least count | entries |"), expected);
}

TEST(HostPageTest, TellsWhereTheFieldsOfStructuresLie) {
  const auto onPage = [](const std::string& name) {
    return TableUnder("### `Vantrix" + name + "`", "| offset | bytes | field | |", true);
  };
  using Block = SuiteParameterBlock;
  EXPECT_EQ(
      onPage("ParameterBlock"),
      (Lines{Line(offsetof(Block, hostWord), sizeof(Block::hostWord), "`hostWord`"),
             Line(offsetof(Block, recordCount), sizeof(Block::recordCount), "`recordCount`")}));
  using Record = SuiteRecord;
  EXPECT_EQ(
      onPage("SuiteRecord"),
      (Lines{Line(offsetof(Record, suiteCode), sizeof(Record::suiteCode), "`suiteCode`"),
             Line(offsetof(Record, suiteVersion), sizeof(Record::suiteVersion), "`suiteVersion`"),
             Line(offsetof(Record, suiteCount), sizeof(Record::suiteCount), "`suiteCount`"),
             Line(offsetof(Record, routines), sizeof(Record::routines), "`routines`")}));
  using Kernel = ConvolutionKernel;
  EXPECT_EQ(onPage("ConvolutionKernel"),
            (Lines{Line(offsetof(Kernel, hosts), sizeof(Kernel::hosts), "`hosts`"),
                   Line(offsetof(Kernel, radius), sizeof(Kernel::radius), "`radius`"),
                   Line(offsetof(Kernel, weights), sizeof(Kernel::weights), "`weights`")}));
  using Array = FillArray;
  EXPECT_EQ(onPage("FillArray"),
            (Lines{Line(offsetof(Array, boundLeft), sizeof(Array::boundLeft), "`boundLeft`"),
                   Line(offsetof(Array, firstRow), sizeof(Array::firstRow), "`firstRow`"),
                   Line(offsetof(Array, boundRight), sizeof(Array::boundRight), "`boundRight`"),
                   Line(offsetof(Array, endRow), sizeof(Array::endRow), "`endRow`"),
                   Line(offsetof(Array, hostWord), sizeof(Array::hostWord), "`hostWord`"),
                   Line(offsetof(Array, rowStride), sizeof(Array::rowStride), "`rowStride`"),
                   Line(offsetof(Array, hostWords), sizeof(Array::hostWords), "`hostWords`")}));
}

// Returns all that a pattern finds in a text.
std::vector<std::smatch> FindAll(const std::string& text, const char* pattern) {
  const std::regex expression(pattern);
  return {std::sregex_iterator(text.begin(), text.end(), expression), std::sregex_iterator()};
}

TEST(HostPageTest, ListsEveryReportWithItsLine) {
  const std::string checks = ReadFile("suites/path/checks.cpp");
  const std::string fold = ReadFile("suites/path/fill_array.inl") +
                           ReadFile("suites/path/merge.h") + ReadFile("suites/path/debugging.cpp");
  std::set<std::string> expected;
  const auto expect = [&](int line, const std::string& message) {
    expected.insert(Line(line, message.starts_with("WARNING") ? 0 : 1, "`" + message + "`"));
  };
  for (const auto& m : FindAll(fold, "\"([^\"]+)\",\\s*(?:kPathSourceFile,\\s*)?(\\d+)\\b"))
    expect(std::stoi(m[2]), m[1]);
  // A check of a whole array has reports of its own, and names the line that called it.
  for (const auto& call : FindAll(fold, "(Validate|VerifyGuards)\\((\\d+)\\)")) {
    for (const auto& m : FindAll(checks, "\"(VerifyPathFillArray [^\"]+)\""))
      expect(std::stoi(call[2]), m[1]);
    if (call[1] == "Validate")
      for (const auto& m : FindAll(checks, "report\\(\"([^\"]+)\"\\)"))
        expect(std::stoi(call[2]), m[1]);
  }
  EXPECT_THAT(TableUnder("## Reports", "| line | flag | message |"),
              UnorderedElementsAreArray(expected));
}

}  // namespace
}  // namespace vantrix
