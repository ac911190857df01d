#include "host/demo/demo.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "host/demo/page.h"
#include "host/demo/report.h"
#include "host/machine.h"
#include "host/paths.h"
#include "host/version.h"

namespace vantrix::host {
namespace {

constexpr Operation kOperations[] = {
    {"Copies and fills", 0.02, DemonstrateMemory}, {"Vignettes", 0.05, DemonstrateVignette},
    {"Blends", 0.35, DemonstrateBlends},           {"Selections", 0.2, DemonstrateSelection},
    {"Depths", 0.03, DemonstrateDepths},           {"Filters", 0.1, DemonstrateFilters},
    {"Resampling", 0.2, DemonstrateResampling},    {"Outlines", 0.05, DemonstratePaths},
};

constexpr char kTextReport[] = "report.txt";

bool Fail(const std::string& reason) {
  std::fprintf(stderr, "vantrix-host: %s\n", reason.c_str());
  return false;
}

// A picture with more samples per plane is averaged down,
// so that the demonstration takes less than a minute.
constexpr int64_t kMostSamples = int64_t{2560} * 1600;

std::string SizeText(Size size, Size whole) {
  const auto text = [](Size s) {
    return std::to_string(s.width) + " x " + std::to_string(s.height);
  };
  std::string shown = text(size) + " samples in 3 planes";
  if (size.width != whole.width || size.height != whole.height)
    shown += ", averaged down from " + text(whole);
  return shown;
}

bool WriteText(const std::filesystem::path& path, const std::string& text) {
  return (std::ofstream(path, std::ios::binary) << text << std::flush) ||
         Fail("cannot write " + TextOf(path));
}

}  // namespace

bool MakeFolder(const std::filesystem::path& folder, std::string* error) {
  std::error_code failure;
  std::filesystem::create_directories(folder, failure);
  *error = "cannot make the folder " + TextOf(folder);
  if (failure) return false;
  *error = "cannot write into the folder " + TextOf(folder);
  return static_cast<bool>(std::ofstream(folder / kTextReport) << "not finished\n" << std::flush);
}

bool RunDemo(const Tables& tables, const FormIndex* index, const DemoOptions& options) {
  const std::string name =
      options.picture.empty() ? "a generated picture" : TextOf(options.picture);
  Picture photo;
  Size whole{1920, 1200};
  std::string error;
  if (options.picture.empty())
    photo = GeneratedPicture(whole.width, whole.height);
  else if (!ReadPicture(options.picture, kMostSamples, &photo, &whole, &error))
    return Fail(error);
  const std::filesystem::path& folder = options.folder;
  if (!MakeFolder(folder, &error)) return Fail(error);

  const std::string size = SizeText({photo.width, photo.height}, whole);
  std::printf("%s, %s\n", name.c_str(), size.c_str());
  Session session(tables, index, std::move(photo), folder);
  int number = 0;
  double done = 0;
  for (const Operation& operation : kOperations) {
    std::printf("[%d/%zu] %s\n", ++number, std::size(kOperations), operation.title);
    std::fflush(stdout);
    session.Begin(operation.title, done, done + operation.share);
    operation.run(session);
    done += operation.share;
  }

  const std::vector<SlotRuns> all = session.AllRuns();
  const std::string report = TextReport(all);
  std::printf("\n%s", report.c_str());
  const std::vector<Fact> facts = {
      {"Picture", TextOf(PathOf(name).filename()) + ", " + size},
      {"Processor", ProcessorName()},
      {"Forms of kernels that run here", (index ? RunningForms(*index) : "not told")},
      {"System", SystemName()},
      {"Compiler of the ordinary routines", Compiler()},
      {"Version", std::string("vantrix-host ") + Version()}};
  if (!WriteText(folder / kTextReport, report) ||
      !WriteText(folder / kPage, Page(facts, session.Sections(), all)))
    return false;
  std::printf("\nto look at: %s\n", TextOf(folder / kPage).c_str());
  return session.IsGood() || Fail("not every result is as it should be");
}

}  // namespace vantrix::host
