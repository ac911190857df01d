#include "host/demo/demo.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

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

}  // namespace

bool RunDemo(const Tables& tables, const std::string& picturePath, const std::string& folder) {
  Picture photo;
  std::string error;
  if (picturePath.empty())
    photo = GeneratedPicture(1920, 1200);
  else if (!ReadPicture(picturePath, &photo, &error))
    return Fail(error);
  std::error_code failure;
  std::filesystem::create_directories(folder, failure);
  if (failure) return Fail("cannot make the folder " + folder);

  std::printf("%s, %d x %d samples in 3 planes\n",
              picturePath.empty() ? "a generated picture" : picturePath.c_str(), photo.width,
              photo.height);
  Session session(tables, std::move(photo), folder);
  int number = 0;
  for (const Operation& operation : kOperations) {
    std::printf("[%d/%zu] %s\n", ++number, std::size(kOperations), operation.title);
    std::fflush(stdout);
    operation.run(session);
  }

  const std::string report = session.Report();
  std::printf("\n%s", report.c_str());
  std::ofstream file(folder + "/report.txt");
  if (!(file << report)) return Fail("cannot write " + folder + "/report.txt");
  return session.IsGood() || Fail("not every result is as it should be");
}

}  // namespace vantrix::host
