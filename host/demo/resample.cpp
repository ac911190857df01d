#include <cmath>
#include <numbers>

#include "host/demo/demo.h"
#include "host/demo/planes.h"
#include "host/demo/sheet.h"
#include "host/demo/weight_table.h"
#include "plugin/base/interface.h"
#include "suites/resample/signatures.h"

namespace vantrix::host {
namespace {

constexpr int kTile = 420;

template <class Sample>
struct Depth;
template <>
struct Depth<uint8_t> {
  static constexpr uint16_t kAcross = 5, kDown = 6;
  static constexpr double kWhite = 255;
};
template <>
struct Depth<uint16_t> {
  static constexpr uint16_t kAcross = 13;
  static constexpr double kWhite = 32768;
};
template <>
struct Depth<float> {
  static constexpr uint16_t kAcross = 26, kDown = 27;
  static constexpr double kWhite = 1;
};

template <class Sample>
constexpr int32_t kSize = sizeof(Sample);

template <class Sample>
Planes<Sample> EmptyPlanes(int width, int height) {
  const std::vector<Sample> plane(static_cast<size_t>(width) * static_cast<size_t>(height));
  return {plane, plane, plane};
}
template <class Sample>
std::vector<BorderedOf<Sample>> Bordering(const Planes<Sample>& planes, int width, int height) {
  std::vector<BorderedOf<Sample>> bordered;
  for (const auto& plane : planes) bordered.emplace_back(plane, width, height, WeightTable::kReach);
  return bordered;
}
// Makes `height` rows of `from` samples `to` samples wide.
template <class Sample>
Planes<Sample> ResizedAcross(Session& session, const Planes<Sample>& planes, int from, int height,
                             int to, int taps) {
  const WeightTable table(from, to, taps);
  const auto sources = Bordering(planes, from, height);
  auto result = EmptyPlanes<Sample>(to, height);
  session.Run<Planes<Sample>>(
      kResample, Depth<Sample>::kAcross, &result, [&](Routine routine, Planes<Sample>& target) {
        for (size_t c = 0; c < 3; ++c)
          Call<FilterHorizontal<Sample>>(routine)(
              sources[c].Row(0), target[c].data(), static_cast<uint32_t>(height), to,
              table.offsets.data(), table.phases.data(), sources[c].Stride() * kSize<Sample>,
              to * kSize<Sample>, taps, table.weights.data());
      });
  return result;
}

// Does the same with columns; if no routine does that, with the rows of the transposed planes.
template <class Sample>
Planes<Sample> ResizedDown(Session& session, const Planes<Sample>& planes, int width, int from,
                           int to, int taps) {
  if constexpr (requires { Depth<Sample>::kDown; }) {
    const WeightTable table(from, to, taps);
    const auto sources = Bordering(planes, width, from);
    auto result = EmptyPlanes<Sample>(width, to);
    session.Run<Planes<Sample>>(
        kResample, Depth<Sample>::kDown, &result, [&](Routine routine, Planes<Sample>& target) {
          for (size_t c = 0; c < 3; ++c)
            Call<FilterVertical<Sample>>(routine)(
                sources[c].Row(0), target[c].data(), to, width, table.offsets.data(),
                table.phases.data(), sources[c].Stride() * kSize<Sample>, width * kSize<Sample>,
                taps, table.weights.data());
        });
    return result;
  } else {
    const auto turned = Transposed(planes, width, from);
    return Transposed(ResizedAcross(session, turned, from, width, to, taps), to, width);
  }
}

int Scaled(int size, double scale) {
  return std::max(1, static_cast<int>(std::lround(size * scale)));
}

template <class Sample>
Picture Resized(Session& session, const Picture& picture, double scale, int taps) {
  constexpr double kWhite = Depth<Sample>::kWhite, kHalf = kWhite > 1 ? 0.5 : 0;
  Picture result(Scaled(picture.width, scale), Scaled(picture.height, scale));
  Planes<Sample> planes;
  for (size_t c = 0; c < 3; ++c)
    for (const uint8_t sample : picture.planes[c])
      planes[c].push_back(static_cast<Sample>(sample * kWhite / 255 + kHalf));
  planes = ResizedAcross(session, planes, picture.width, picture.height, result.width, taps);
  planes = ResizedDown(session, planes, result.width, picture.height, result.height, taps);
  for (size_t c = 0; c < 3; ++c)
    std::ranges::transform(planes[c], result.planes[c].begin(), [](Sample sample) {
      return static_cast<uint8_t>(std::clamp(std::lround(sample * 255 / kWhite), 0L, 255L));
    });
  return result;
}

Picture AveragedInBlocks(Session& session, int side) {
  const Picture& photo = session.Photo();
  Picture result(std::max(1, photo.width / side), std::max(1, photo.height / side));
  if (photo.width < side || photo.height < side) return result;
  session.Run<Picture>(kResample, 24, &result, [&](Routine routine, Picture& target) {
    for (int c = 0; c < 3; ++c)
      Call<BoxAverageArea>(routine)(photo.Row(c, 0), target.Row(c, 0), target.height, target.width,
                                    side, side, photo.width, target.width);
  });
  return result;
}

// Averages more and more rows to one, from the top to the bottom.
Picture AveragedUnevenly(Session& session) {
  const Picture& photo = session.Photo();
  std::vector<int32_t> counts;
  for (int row = 0, count = 1; row + count <= photo.height; row += count) {
    count = 1 + 6 * row / photo.height;
    if (row + count <= photo.height) counts.push_back(count);
  }
  const auto height = static_cast<int32_t>(counts.size());
  Picture result(photo.width, height);
  session.Run<Picture>(kResample, 3, &result, [&](Routine routine, Picture& target) {
    for (int c = 0; c < 3; ++c)
      Call<BoxAverageRows>(routine)(photo.Row(c, 0), target.Row(c, 0), height, photo.width,
                                    counts.data(), photo.width, photo.width);
  });
  return result;
}

constexpr uint8_t kPaper = 60;

// Makes each row as long as the trapezoid is there, on paper. Rows above it have length 0.
Picture Trapezoid(Session& session) {
  const Picture& photo = session.Photo();
  const int32_t stride = photo.width + 6;
  std::vector<int32_t> lengths;
  for (int y = 0; y < photo.height; ++y) {
    const int part = std::max(0, y - photo.height / 16);
    lengths.push_back(part ? photo.width / 3 + photo.width * 2 / 3 * part / photo.height : 0);
  }
  const std::vector<uint8_t> paper(static_cast<size_t>(stride) * lengths.size(), kPaper);
  Planes<uint8_t> sources = {paper, paper, paper};
  for (size_t c = 0; c < 3; ++c)
    for (int y = 0; y < photo.height; ++y)
      std::copy_n(photo.Row(static_cast<int>(c), y), photo.width,
                  sources[c].data() + y * stride + 3);
  Picture result = photo;
  session.Run<Picture>(kResample, 7, &result, [&](Routine routine, Picture& target) {
    for (size_t c = 0; c < 3; ++c)
      Call<ResampleRowsStepped>(routine)(sources[c].data() + 3, target.planes[c].data(),
                                         photo.height, photo.width, lengths.data(), stride,
                                         photo.width);
  });
  return result;
}

int32_t Fixed(double coordinate) { return static_cast<int32_t>(std::lround(coordinate * 65536)); }

Picture Paper(int width, int height) {
  Picture paper(width, height);
  for (auto& plane : paper.planes) std::ranges::fill(plane, kPaper);
  return paper;
}

// Swings each row to and fro.
Picture Waves(Session& session, const Picture& picture) {
  const int32_t width = picture.width;
  Picture result = Paper(width, picture.height);
  std::vector<int32_t> positions;
  for (int y = 0; y < picture.height; ++y)
    for (int x = 0; x < width; ++x)
      positions.push_back(Fixed(x + 0.05 * width * std::sin(y * 14.0 / picture.height)));
  session.Run<Picture>(kResample, 18, &result, [&](Routine routine, Picture& target) {
    for (int c = 0; c < 3; ++c)
      for (int y = 0; y < picture.height; ++y)
        Call<SampleAtPositions1D>(routine)(picture.Row(c, y), target.Row(c, y), width, width,
                                           positions.data() + intptr_t{y} * width, 1);
  });
  return result;
}

Picture Turned(Session& session, const Picture& picture, double degrees, int32_t mode) {
  const int width = picture.width, height = picture.height;
  const double cosine = std::cos(degrees * std::numbers::pi / 180),
               sine = std::sin(degrees * std::numbers::pi / 180);
  std::vector<int32_t> positions;
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      const double u = x - width * 0.5, v = y - height * 0.5;
      positions.push_back(Fixed(width * 0.5 + cosine * u + sine * v));
      positions.push_back(Fixed(height * 0.5 - sine * u + cosine * v));
    }
  Picture result = Paper(width, height);
  session.Run<Picture>(kResample, 19, &result, [&](Routine routine, Picture& target) {
    for (int c = 0; c < 3; ++c)
      Call<SampleAtPositions2D>(routine)(picture.Row(c, 0), target.Row(c, 0), width * height, width,
                                         height, positions.data(), width, mode);
  });
  return result;
}

}  // namespace

// Shows sizes, depths and shapes, before and after on one sheet.
void DemonstrateResampling(Session& session) {
  session.Explain(
      "Weights of each tap come from a table of 64 phases. Where a picture's size changes there is "
      "no difference to show. Of what was made smaller a part is shown, sample for sample.");
  const Picture& photo = session.Photo();
  constexpr int kHeight = kTile * 5 / 8;
  const auto partOf = [](const Picture& picture, double scale) {
    return PartOf(picture, {Scaled(kTile, scale), Scaled(kHeight, scale)}, 0.7, 0.5);
  };
  const Picture detail = partOf(photo, 1 / 1.7), threefold = partOf(photo, 3);
  Sheet sheet(4, kTile);
  const auto show = [&](const std::string& title, const Picture& before, const Picture& after) {
    session.Show(title, {}, {{"before", before}, {"after", after}});
    sheet.Add(after, title);
  };
  const auto change = [&](const std::string& title, const char* text, const Picture& before,
                          const Picture& after) {
    session.ShowChange(title, text, before, after);
    sheet.Add(after, title);
  };
  const auto tapsOf = [](const char* what, int taps) {
    return std::string(what) + ", " + std::to_string(taps) + " taps";
  };

  sheet.Add(photo, "the photograph");
  Picture third;
  for (const int taps : {2, 4, 6}) {
    third = Resized<uint8_t>(session, photo, 1 / 3.0, taps);
    show(tapsOf("A third", taps), threefold, partOf(third, 1));
    session.Advance(taps / 12.0);
  }
  sheet.Add(detail, "a part of the photograph");
  for (const int taps : {2, 4, 6})
    show(tapsOf("1.7 times", taps), detail, Resized<uint8_t>(session, detail, 1.7, taps));
  show("A third in 16 bits, 6 taps", threefold,
       partOf(Resized<uint16_t>(session, photo, 1 / 3.0, 6), 1));
  session.Advance(0.7);
  show("A third in floats, 6 taps", threefold,
       partOf(Resized<float>(session, photo, 1 / 3.0, 6), 1));
  session.Advance(0.9);
  show("Averages of 3 x 3", threefold, partOf(AveragedInBlocks(session, 3), 1));
  show("Averages of 1 to 6 rows", photo, AveragedUnevenly(session));
  change("Rows stretched", "Each row is as long as the trapezoid is there.", photo,
         Trapezoid(session));
  change("Rows swung to and fro", "Each sample is fetched from a position along its row.", third,
         Waves(session, third));
  change("Turned, nearest samples", "Each sample is fetched from a position in the plane.", third,
         Turned(session, third, 8, 0));
  change("Turned, between samples", "Each sample is a mean of the four about a position.", third,
         Turned(session, third, 8, 1));
  session.Save("resampling.png", sheet.Draw());
}

}  // namespace vantrix::host
