#include "host/demo/exhibit.h"

#include <algorithm>

namespace vantrix::host {
namespace {

constexpr Size kShown = {640, 480};

// Brightens a picture by a whole factor, which it returns, so that small differences can be seen.
int Brighten(Picture* picture) {
  constexpr int kMost = 16;
  uint8_t greatest = 0;
  for (const auto& plane : picture->planes)
    greatest = std::max(greatest, *std::ranges::max_element(plane));
  const int factor = greatest == 0 ? 1 : std::clamp(255 / greatest, 1, kMost);
  for (auto& plane : picture->planes)
    for (uint8_t& sample : plane) sample = static_cast<uint8_t>(sample * factor);
  return factor;
}

Picture Distance(const Picture& a, const Picture& b) {
  Picture distance(a.width, a.height);
  for (size_t c = 0; c < 3; ++c)
    std::ranges::transform(
        a.planes[c], b.planes[c], distance.planes[c].begin(),
        [](uint8_t x, uint8_t y) { return static_cast<uint8_t>(x < y ? y - x : x - y); });
  return distance;
}

}  // namespace

void AddRuns(const SlotRuns& runs, std::vector<SlotRuns>* all) {
  const auto same = std::ranges::find_if(*all, [&](const SlotRuns& other) {
    return other.suite == runs.suite && other.slot == runs.slot;
  });
  if (same == all->end()) return all->push_back(runs);
  same->count += runs.count;
  same->isSame &= runs.isSame;
  same->times += runs.times;
}

Figure::Figure(std::string words, const Picture& whole)
    : caption(std::move(words)),
      width(whole.width),
      height(whole.height),
      picture(Fitted(whole, kShown)) {}

std::vector<Figure> BeforeAndAfter(const Picture& before, const Picture& after) {
  Figure difference("", Distance(before, after));
  const int factor = Brighten(&difference.picture);
  const bool isNone = std::ranges::all_of(difference.picture.planes, [](const auto& plane) {
    return std::ranges::all_of(plane, [](uint8_t sample) { return sample == 0; });
  });
  difference.caption = isNone ? "no difference"
                       : factor == 1
                           ? "difference"
                           : "difference, shown " + std::to_string(factor) + " times as bright";
  return {{"before", before}, {"after", after}, std::move(difference)};
}

}  // namespace vantrix::host
