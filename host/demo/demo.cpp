#include "host/demo/demo.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "host/paths.h"

namespace vantrix::host {
namespace {

constexpr Operation kOperations[] = {
    {"copies and fills", DemonstrateMemory},
    {"soft-edged vignettes", DemonstrateVignette},
    {"every blend on one sheet", DemonstrateBlends},
    {"masks classified, marks spread, colours propagated", DemonstrateSelection},
    {"8 to 16 bits and back", DemonstrateDepths},
    {"smoothing, deviation and block differences", DemonstrateFilters},
    {"reduced, enlarged, averaged, stretched and turned", DemonstrateResampling},
    {"drawn outlines", DemonstratePaths},
};

bool Fail(const std::string& reason) {
  std::fprintf(stderr, "vantrix-host: %s\n", reason.c_str());
  return false;
}

// Whether pictures can be written there.
bool IsWritable(const std::filesystem::path& folder) {
  const std::filesystem::path probe = folder / "report.txt";
  return static_cast<bool>(std::ofstream(probe) << "not finished\n" << std::flush);
}

}  // namespace

bool RunDemo(const Tables& tables, const std::filesystem::path& picturePath,
             const std::filesystem::path& folder) {
  Picture photo;
  std::string error;
  if (picturePath.empty())
    photo = GeneratedPicture(1920, 1200);
  else if (!ReadPicture(picturePath, &photo, &error))
    return Fail(error);
  std::error_code failure;
  std::filesystem::create_directories(folder, failure);
  if (failure) return Fail("cannot make the folder " + TextOf(folder));
  if (!IsWritable(folder)) return Fail("cannot write into the folder " + TextOf(folder));

  std::printf("%s, %d x %d samples in 3 planes\n",
              picturePath.empty() ? "a generated picture" : TextOf(picturePath).c_str(),
              photo.width, photo.height);
  Session session(tables, std::move(photo), folder);
  int number = 0;
  for (const Operation& operation : kOperations) {
    std::printf("[%d/%zu] %s\n", ++number, std::size(kOperations), operation.title);
    std::fflush(stdout);
    operation.run(session);
  }

  const std::string report = session.Report();
  std::printf("\n%s", report.c_str());
  const std::filesystem::path path = folder / "report.txt";
  if (!(std::ofstream(path) << report << std::flush)) return Fail("cannot write " + TextOf(path));
  return session.IsGood() || Fail("not every result is as it should be");
}

}  // namespace vantrix::host
