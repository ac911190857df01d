#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "host/demo/demo.h"
#include "host/demo/planes.h"
#include "host/demo/sheet.h"
#include "plugin/base/interface.h"
#include "suites/filter/signatures.h"

namespace vantrix::host {
namespace {

// Returns the host's record of a bell of weights that sum to 256.
std::vector<uint8_t> BellKernel(int radius) {
  std::vector<double> bell;
  double sum = 0;
  for (int k = -radius; k <= radius; ++k) {
    bell.push_back(std::exp(-4.0 * k * k / ((radius + 1.0) * (radius + 1.0))));
    sum += bell.back();
  }
  std::vector<uint32_t> weights;
  uint32_t left = 256;
  for (const double b : bell) {
    weights.push_back(static_cast<uint32_t>(std::lround(256 * b / sum)));
    left -= weights.back();
  }
  weights[static_cast<size_t>(radius)] += left;
  std::vector<uint8_t> kernel(84 + 4 * weights.size());
  std::memcpy(&kernel[80], &radius, 4);
  std::memcpy(kernel.data() + 84, weights.data(), 4 * weights.size());
  return kernel;
}

// Smooths columns by the filter, and rows by transposing the plane.
Picture Smoothed(Session& session, int radius) {
  const Picture& photo = session.Photo();
  const auto kernel = BellKernel(radius);
  Picture smooth = photo;
  for (auto& plane : smooth.planes) {
    int width = photo.width, height = photo.height;
    for (int turn = 0; turn < 2; ++turn) {
      const Bordered source(plane, width, height, radius);
      session.Run<std::vector<uint8_t>>(
          kFilter, 28, &plane, [&](Routine routine, std::vector<uint8_t>& target) {
            Call<ConvolveRoutine>(routine)(
                source.Row(0), target.data(), static_cast<uint32_t>(height), width, source.Stride(),
                width, reinterpret_cast<const ConvolutionKernel*>(kernel.data()));
          });
      plane = Transposed(plane, width, height);
      std::swap(width, height);
    }
  }
  return smooth;
}

Picture DeviationMap(Session& session) {
  const Picture& photo = session.Photo();
  Picture map = photo;
  for (auto& plane : map.planes) {
    const Bordered source(plane, photo.width, photo.height, 1);
    session.Run<std::vector<uint8_t>>(
        kFilter, 12, &plane, [&](Routine routine, std::vector<uint8_t>& target) {
          Call<DeviationRoutine>(routine)(source.Row(0), target.data(), photo.height, photo.width,
                                          source.Stride(), photo.width);
        });
  }
  return map;
}

// Returns a picture of how much each block of 16 x 8 samples differs from the block three columns
// and two rows on or, if isSigned, by how much it exceeds that block.
Picture DifferenceMap(Session& session, bool isSigned) {
  const Picture& photo = session.Photo();
  struct alignas(16) Block {
    uint8_t samples[128];
  };
  // The outermost samples are repeated beyond the edges.
  const auto blockAt = [&](int left, int top) {
    Block block;
    for (int y = 0; y < 8; ++y)
      for (int x = 0; x < 16; ++x)
        block.samples[16 * y + x] =
            photo.Row(1, std::min(top + y, photo.height - 1))[std::min(left + x, photo.width - 1)];
    return block;
  };
  // Whole blocks, at least one.
  Picture map(std::max(16, photo.width / 16 * 16), std::max(8, photo.height / 8 * 8));
  std::vector<Block> here, there;
  for (int y = 0; y < map.height; y += 8)
    for (int x = 0; x < map.width; x += 16) {
      here.push_back(blockAt(x, y));
      there.push_back(blockAt(x + 3, y + 2));
    }
  const Block direction{};
  std::vector<uint16_t> sums(here.size());
  session.Run<std::vector<uint16_t>>(
      kFilter, isSigned ? 189 : 188, &sums, [&](Routine routine, std::vector<uint16_t>& target) {
        for (size_t i = 0; i < here.size(); ++i)
          target[i] = static_cast<uint16_t>(
              isSigned ? Call<BlockSignedSADRoutine>(routine)(here[i].samples, there[i].samples,
                                                              direction.samples)
                       : Call<BlockSADRoutine>(routine)(here[i].samples, there[i].samples));
      });
  for (int y = 0; y < map.height; ++y)
    for (int x = 0; x < map.width; ++x) {
      const int block = y / 8 * (map.width / 16) + x / 16;
      const int sum = sums[static_cast<size_t>(block)];
      for (int c = 0; c < 3; ++c) map.Row(c, y)[x] = static_cast<uint8_t>(std::min(255, sum / 16));
    }
  return map;
}

}  // namespace

// Shows a part, since reducing the whole would hide what filters do.
void DemonstrateFilters(Session& session) {
  session.Explain("The filters ran on the whole photograph; a part of it is shown.");
  const auto partOf = [](const Picture& picture) {
    return PartOf(picture, {std::max(420, picture.width / 4), std::max(280, picture.height / 4)},
                  0.7, 0.5);
  };
  const Picture photo = partOf(session.Photo());
  Sheet sheet(4, 420);
  sheet.Add(photo, "the photograph");
  for (const int radius : {1, 3, 8}) {
    const Picture smooth = partOf(Smoothed(session, radius));
    const std::string of = "radius " + std::to_string(radius);
    session.ShowChange("Smoothed, " + of,
                       "Columns by the filter, then rows, by turning the plane about its diagonal.",
                       photo, smooth);
    sheet.Add(smooth, "smoothed, " + of);
    session.Advance(radius / 10.0);
  }
  const auto map = [&](const char* title, const char* text, const char* label,
                       const Picture& whole) {
    const Picture part = partOf(whole);
    session.Show(title, text, {{"the photograph", photo}, {label, part}});
    sheet.Add(part, label);
  };
  map("Local deviation", "The brighter a sample, the more the nine samples about it differ.",
      "local deviation", DeviationMap(session));
  map("Blocks against their neighbours",
      "Each block of 16 x 8 samples of green is as bright as it differs from the block three "
      "columns and two rows on.",
      "difference of blocks", DifferenceMap(session, false));
  map("Blocks above their neighbours",
      "As bright as the block's samples exceed those of the other; where they fall below them, "
      "nothing is counted.",
      "excess of blocks", DifferenceMap(session, true));
  session.Save("filters.png", sheet.Draw());
}

}  // namespace vantrix::host
