#include <cstdio>

#include "host/demo/demo.h"
#include "host/demo/sheet.h"
#include "plugin/suites.h"
#include "suites/select/signatures.h"

namespace vantrix::host {
namespace {

Picture Gray(const std::vector<uint8_t>& plane, int width, int height) {
  Picture picture(width, height);
  for (auto& channel : picture.planes) channel = plane;
  return picture;
}

// A mask for each class, and the class that both routines give it.
void Classify(Session& session, int width, int height, Sheet& sheet) {
  const auto soft = VignetteMask(width, height);
  const auto mapped = [&](auto rule) {
    auto mask = soft;
    for (uint8_t& m : mask) m = static_cast<uint8_t>(rule(m));
    return mask;
  };
  const struct {
    const char* name;
    std::vector<uint8_t> mask;
  } masks[] = {
      {"empty", mapped([](int) { return 0; })},
      {"below half", mapped([](int m) { return m / 3; })},
      {"mixed", soft},
      {"from half on", mapped([](int m) { return 128 + m / 3; })},
      {"full", mapped([](int) { return 255; })},
  };
  for (const auto& [name, mask] : masks) {
    int32_t answer = -1;
    session.Run<int32_t>(kSelect, 33, &answer, [&](Routine routine, int32_t& target) {
      target = Call<Classify8Routine>(routine)(mask.data(), height, width, width);
    });
    std::vector<uint16_t> words(mask.begin(), mask.end());
    for (uint16_t& word : words) word = static_cast<uint16_t>((word * 32768 + 127) / 255);
    int32_t wide = -1;
    session.Run<int32_t>(kSelect, 75, &wide, [&](Routine routine, int32_t& target) {
      target = Call<Classify16Routine>(routine)(words.data(), height, width, 2 * width);
    });
    char label[80];
    std::snprintf(label, sizeof label, "%s\nclass %d, in 16 bits %d", name, answer, wide);
    sheet.Add(Gray(mask, width, height), label);
  }
}

// A drawn line, and its marks spread row by row.
void Spread(Session& session, int width, int height, Sheet& sheet) {
  std::vector<uint8_t> marks(static_cast<size_t>(width) * static_cast<size_t>(height), 30);
  for (int x = 0; x < width; ++x) {
    const int y = height / 2 + (x % 400 < 200 ? x % 200 : 200 - x % 200) * height / 800;
    marks[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)] |= 128;
  }
  sheet.Add(Gray(marks, width, height), "marks");
  for (int turn = 0; turn < height / 40; ++turn)
    session.Run<std::vector<uint8_t>>(
        kSelect, 26, &marks, [&](Routine routine, std::vector<uint8_t>& target) {
          Call<SpreadMarkRoutine>(routine)(target.data(), height, width, width);
        });
  sheet.Add(Gray(marks, width, height), "spread, a row at a time");
}

// Seeds in a grid take the photograph's colours and push them in the four directions.
template <class T, class Signature>
Picture Mosaic(Session& session, uint16_t slot) {
  const Picture& photo = session.Photo();
  const int width = photo.width, height = photo.height;
  struct Planes {
    std::vector<T> priority, value;
    bool operator==(const Planes&) const = default;
  };
  constexpr int kApart = 40;
  constexpr int32_t kSize = sizeof(T);
  Picture mosaic(width, height);
  for (int c = 0; c < 3; ++c) {
    const auto& samples = photo.planes[static_cast<size_t>(c)];
    Planes planes{std::vector<T>(samples.size()), std::vector<T>(samples.begin(), samples.end())};
    for (int y = kApart / 2; y < height; y += kApart)
      for (int x = kApart / 2 + y % 3 * 10; x < width; x += kApart)
        planes.priority[static_cast<size_t>(y) * static_cast<size_t>(width) +
                        static_cast<size_t>(x)] = kApart;
    // Steps of the 8-bit routine count entries, of the 16-bit routine bytes.
    const int32_t row = width * kSize, entry = kSize;
    const size_t last = samples.size() - 1;
    const struct {
      size_t start;
      int32_t lines, length, lineStep, entryStep;
    } walks[] = {{0, height, width, row, entry},
                 {last, height, width, -row, -entry},
                 {0, width, height, entry, row},
                 {last, width, height, -entry, -row}};
    for (const auto& walk : walks)
      session.Run<Planes>(kSelect, slot, &planes, [&](Routine routine, Planes& target) {
        Call<Signature>(routine)(target.priority.data() + walk.start,
                                 target.value.data() + walk.start, walk.lines, walk.length,
                                 walk.lineStep, walk.entryStep);
      });
    for (size_t i = 0; i < samples.size(); ++i)
      mosaic.planes[static_cast<size_t>(c)][i] = static_cast<uint8_t>(planes.value[i]);
  }
  return mosaic;
}

}  // namespace

void DemonstrateSelection(Session& session) {
  const Picture& photo = session.Photo();
  Sheet sheet(5, 320);
  Classify(session, photo.width, photo.height, sheet);
  Spread(session, photo.width, photo.height, sheet);
  sheet.Add(photo, "the photograph");
  sheet.Add(Mosaic<uint8_t, Propagate8Routine>(session, 35),
            "colours of a grid\npropagated four ways");
  sheet.Add(Mosaic<uint16_t, Propagate16Routine>(session, 73), "the same in 16 bits");
  session.Save("selection.png", sheet.Draw());
}

}  // namespace vantrix::host
